#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/ScriptEngine.h"
#include "simulation/ScriptText.h"

namespace morvane {

struct Machine;
struct MachineText;

/// Gives the texts of a machine a meaning: they are run as ECMAScript on variables that live as
/// long as a run. What a text has for other languages is put into its words, see `ScriptText`. It
/// refers to the machine, which has to outlive it.
class ChartScript {
 public:
  /// Without an engine every text is a fault.
  ChartScript(const Machine& machine, std::unique_ptr<ScriptEngine> engine);
  ~ChartScript();

  /// The variables are as at the start: those that the chart's declarations have, and those that a
  /// text gives a value to, which begin with 0 where nothing else is said.
  void Begin();
  /// Whether a condition holds; nothing, with the reason in `fault`, if that can't be found out.
  std::optional<bool> Test(const MachineText& guard, std::string& fault);

  struct Outcome {
    std::string note;               ///< what to tell of it: why it didn't run, or what it left out
    std::vector<std::string> sent;  ///< the names of events
  };
  Outcome Act(const MachineText& code);

  /// All variables as a JSON object. A copy of it is a way back.
  const std::string& Variables() const { return variables; }
  void SetVariables(const std::string& json);
  /// Gives a variable the value of an expression; the reason if that fails, otherwise empty.
  std::string Assign(const std::string& name, const std::string& expression);
  /// Names that the texts read and nothing gives a value to, until `Assign` does.
  const std::set<std::string>& Inputs() const { return inputs; }

 private:
  const ScriptText& Of(const MachineText& code);
  ScriptResult Call(const std::string& function, const std::string& arguments);
  void CollectNames();
  bool SetUp();

  const Machine& machine;
  std::unique_ptr<ScriptEngine> engine;
  std::map<std::string, ScriptText> texts;  ///< by what stands in the chart
  std::map<std::string, std::string> initial;
  std::set<std::string> inputs;
  std::set<std::string> givenUp;  ///< programs that took too much
  std::string variables = "{}";
  bool isSetUp = false;
};

}  // namespace morvane
