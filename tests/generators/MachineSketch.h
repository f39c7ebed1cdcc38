#pragma once

#include <string>
#include <vector>

#include "machine/Machine.h"

namespace morvane {

/// Builds a machine from names, by way of a chart. The outer states come first.
class MachineSketch {
 public:
  /// `parent`: the name of a state, or none.
  MachineSketch& State(const std::string& name, const std::string& parent = {},
                       const std::string& entry = {}, const std::string& exit = {});
  MachineSketch& Final(const std::string& parent = {});
  MachineSketch& History(const std::string& name);
  /// From the mark inside `source`, or the chart's.
  MachineSketch& Initial(const std::string& source, const std::string& target,
                         const std::string& effect = {});
  /// `events`: names with blanks between them, or none.
  MachineSketch& On(const std::string& source, const std::string& events, const std::string& target,
                    const std::string& guard = {}, const std::string& effect = {});
  /// The machine, without properties. The ids of transitions count from 101, in the order in which
  /// they were added.
  Machine Build() const;

 private:
  struct Box {
    std::string name;  ///< of a final state it is "Final"
    std::string lines;
    std::vector<int> inner;
  };
  int Find(const std::string& name) const;
  int Add(const std::string& parent, const std::string& name);
  void AddTransition(int source, const std::string& target, const std::string& message);
  std::string Lines(const std::vector<int>& inside, const std::string& indent) const;

  std::vector<Box> boxes{Box()};  ///< the first is the chart
  std::string arrows;
  int transitions = 100;
};

}  // namespace morvane
