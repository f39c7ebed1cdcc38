#pragma once

#include "generators/Emitter.h"

namespace morvane {

/// Writes SCXML with the data model of ECMAScript. With `debug` each step is logged, in the words
/// of the trace that the other languages print.
class ScxmlEmitter : public Emitter {
 public:
  Emission Emit(const Machine& machine, const EmitOptions& options) const override;
};

}  // namespace morvane
