#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

class CNames;
class CodePlan;
class CodeWriter;
struct EmitOptions;
struct Machine;

/// Writes what a step of a machine does, one action behind the other. The machine tells its state
/// to the user's code as it is at each moment; where no such code looks at it, it isn't set.
class CActions {
 public:
  CActions(const Machine& machine, const CodePlan& plan, const CNames& names,
           const EmitOptions& options, CodeWriter& out);

  /// The state that the machine holds when the actions begin; without one, it is not known.
  void Begin(std::optional<int> state);
  void Leave(int state);
  /// Leaves all up to, and without, `scope`.
  void LeaveTo(int scope);
  void Act(int transition);
  void Enter(int state);
  void EnterAll(const std::vector<int>& states);
  /// Goes on from the state that was entered last to where the machine rests.
  void Land(int state);
  /// The machine holds the state that it is in.
  void Sync();
  void Trace(std::string_view kind, std::string_view name);

 private:
  void MoveTo(int state);

  const Machine& machine;
  const CodePlan& plan;
  const CNames& names;
  const EmitOptions& options;
  CodeWriter& out;
  int present = 0;
  std::optional<int> stored;
};

}  // namespace morvane
