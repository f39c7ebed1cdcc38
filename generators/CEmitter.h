#pragma once

#include "generators/Emitter.h"

namespace morvane {

/// Writes C99: a header and a source with the name of the model. The code has one struct, no heap
/// and no pointers to functions.
class CEmitter : public Emitter {
 public:
  Emission Emit(const Machine& machine, const EmitOptions& options) const override;
};

}  // namespace morvane
