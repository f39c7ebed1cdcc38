#pragma once

#include <string>
#include <string_view>

namespace morvane {

struct Machine;
struct MachineState;
struct MachineTransition;

/// What things are called in C code: what others see begins with the name of the model.
class CNames {
 public:
  CNames(const Machine& machine, std::string_view stem);

  const std::string& Prefix() const { return prefix; }
  /// The prefix in capitals, for macros.
  const std::string& Macro() const { return macro; }
  std::string Type(std::string_view what) const { return prefix + std::string(what); }
  std::string Function(std::string_view what) const { return prefix + '_' + std::string(what); }
  /// The constants of a state, or of no state for `kChart`, and of an event.
  std::string StateConstant(int state) const;
  std::string EventConstant(int event) const;
  /// What functions and members of a state and a transition are called by.
  std::string Of(std::string_view what, int state) const;
  std::string OfTransition(std::string_view what, int transition) const;
  std::string Memory(int state) const { return Of("last_in", state); }

 private:
  const Machine& machine;
  std::string prefix;
  std::string macro;
  std::string none;
};

}  // namespace morvane
