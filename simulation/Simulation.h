#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "machine/Interpreter.h"
#include "simulation/ChartScript.h"
#include "simulation/Run.h"

namespace morvane {

struct MachineTransition;

/// A run of a machine that the user drives by events. Its texts are run by a script engine; a guard
/// that this can't tell is asked of the user, or decided by rule.
class Simulation : public Run, private Interpreter::Actor {
 public:
  /// How a guard is decided.
  enum class Guards {
    Script,  ///< by what it says; one that can't be run, as `SetUnknown` has it
    Ask,     ///< the user is asked
    True,
    False
  };
  /// Decides the guard of a transition. `reason` is why the script can't, or empty.
  using Asker = std::function<bool(const MachineTransition& transition, const std::string& reason)>;

  /// The machine has to outlive it. Without an engine no text is run.
  Simulation(const Machine& machine, std::unique_ptr<ScriptEngine> engine, Asker asker);
  ~Simulation() override;

  void SetGuards(Guards rule) { guards = rule; }
  /// For a guard that can't be run: `Ask`, `True` or `False`.
  void SetUnknown(Guards rule) { unknown = rule; }

  /// From now on the guard of a transition is decided so, whatever the rules say; nothing for by
  /// the rules.
  void SetAnswer(int transition, std::optional<bool> answer);

  /// Begins, with all that was before forgotten, and goes on to the first breakpoint or to where
  /// the machine rests.
  void Start();
  /// Sends an event from the place that is shown; what lay behind its step is forgotten. Goes on
  /// to the next breakpoint or to where the machine rests. False if the machine doesn't take
  /// events any more.
  bool Send(int event);
  /// The machine has come to its end, at the place that is shown.
  bool IsFinished() const;

  /// What the user did for one step, and what was decided in it.
  struct Step {
    int event = kNoEvent;                       ///< `kNoEvent` for the start
    std::vector<std::pair<int, bool>> answers;  ///< by transition, as they were asked for
    /// Variables that got a value where the step had ended.
    std::vector<std::pair<std::string, std::string>> assigned;
    int active = MachineState::kChart;  ///< at its end
    bool isIgnored = false;             ///< no transition was there for the event
  };
  static constexpr int kNoEvent = -1;
  /// All steps up to the place that is shown.
  std::vector<Step> Steps() const;

  struct Choice {
    int event = 0;
    bool isAccepted = false;  ///< a transition would be taken for it, as far as can be known
  };
  /// All events, those first that would be accepted now; each kind in the machine's order.
  std::vector<Choice> Choices();
  /// The events that wait, at the place that is shown.
  std::vector<int> Queue() const;
  /// The variables at the place that is shown, as a JSON object.
  std::string Variables() const;
  /// Whether a condition holds, at the place that is shown if the machine rests there; nothing,
  /// with the reason in `fault`, if that can't be found out.
  std::optional<bool> Check(const std::string& condition, std::string& fault);
  const std::set<std::string>& Inputs() const { return script.Inputs(); }
  /// Gives a variable another value, at the place that is shown if the machine rests there, else
  /// where the step ends; what lay behind is forgotten. The reason if that fails.
  std::string Assign(const std::string& name, const std::string& expression);

 private:
  /// Where a step has ended.
  struct Rest {
    std::size_t lines = 0;
    Interpreter::Position position;
    std::string variables;
    Step step;
  };
  /// What a line has that isn't in the trace.
  struct Detail {
    std::shared_ptr<const std::vector<int>> queue;
    std::shared_ptr<const std::string> variables;
  };

  bool Holds(const MachineTransition& transition) override;
  void Act(const MachineText& code) override;
  void Trace(std::string_view kind, std::string_view name) override;
  void NoRest() override;

  bool Decide(const MachineTransition& transition, Guards rule, const std::string& reason);
  bool MayHold(int transition);
  int IndexOf(const MachineTransition& transition) const;
  std::size_t RestAt(std::size_t lines) const;
  void ReturnToRest();
  void KeepRest();
  bool Answer(int transition, bool holds);
  void NoteState();

  ChartScript script;
  Asker asker;
  Guards guards = Guards::Script;
  Guards unknown = Guards::Ask;
  Interpreter interpreter;
  std::vector<Rest> rests;
  Step step;  ///< the one at hand
  std::map<int, bool> answers;
  std::vector<Detail> details;  ///< of each line
};

}  // namespace morvane
