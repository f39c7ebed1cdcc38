#pragma once

#include "generators/Emitter.h"

namespace morvane {

struct ClassFacts;

/// Writes a machine as a class of an object-oriented language.
///
/// States and events become enumerations and each text of the chart an operation of its own. An
/// event goes through a switch over the active state and one over the event there. There is no
/// allocation, and nothing is looked up by name.
class ClassEmitter : public Emitter {
 public:
  /// For one of the languages of ClassFacts.h.
  explicit ClassEmitter(const ClassFacts& facts) : facts(facts) {}

  Emission Emit(const Machine& machine, const EmitOptions& options) const override;

 private:
  const ClassFacts& facts;
};

}  // namespace morvane
