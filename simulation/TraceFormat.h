#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "simulation/TraceLine.h"

namespace morvane {

struct Machine;

/// The lines of a trace as text, as generated code prints them: "event go", "exit Off", "take 112",
/// "enter On", "ignored go". It refers to the machine, which has to outlive it.
class TraceFormat {
 public:
  explicit TraceFormat(const Machine& machine);

  std::string Text(const TraceLine& line) const;
  /// Nothing for what is no line of this machine's traces; white space around it doesn't matter.
  std::optional<TraceLine> Parse(std::string_view text) const;
  std::optional<TraceLine> Parse(std::string_view kind, std::string_view name) const;
  /// What the user calls an event or a state: the name in code, or as it is written in the chart.
  std::optional<int> FindEvent(const std::string& name) const;
  std::optional<int> FindState(const std::string& name) const;

 private:
  const Machine& machine;
  std::unordered_map<std::string, int> events;
  std::unordered_map<std::string, int> states;
  std::unordered_map<std::string, int> transitions;
  std::unordered_map<std::string, int> writtenEvents;
  std::unordered_map<std::string, int> titles;  ///< the first state of each
};

}  // namespace morvane
