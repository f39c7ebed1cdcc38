#pragma once

#include <string>

#include "machine/Machine.h"

namespace morvane {

/// Builds a machine from names, the outer states first.
class MachineSketch {
 public:
  /// `parent`: the name of a state, or none.
  MachineSketch& State(const std::string& name, const std::string& parent = {},
                       const std::string& entry = {}, const std::string& exit = {});
  MachineSketch& Final(const std::string& name, const std::string& parent = {},
                       const std::string& entry = {});
  /// Gives a state that has a parent or children already a history.
  MachineSketch& History(const std::string& name);
  /// From the mark inside `source`, or the chart's.
  MachineSketch& Initial(const std::string& source, const std::string& target,
                         const std::string& effect = {});
  /// `events`: names with blanks between them, or none.
  MachineSketch& On(const std::string& source, const std::string& events, const std::string& target,
                    const std::string& guard = {}, const std::string& effect = {});

  /// The machine; ids count from 1 for states and from 101 for transitions, in the order in which
  /// they were added.
  Machine Build() const;

 private:
  int Find(const std::string& name) const;
  int Event(const std::string& name);
  MachineTransition& Add(int source, const std::string& target);
  void Connect(Machine& built, int transition) const;

  Machine machine;
};

}  // namespace morvane
