#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "machine/MachineText.h"

namespace morvane {

/// A state of a machine. States, transitions and events refer to each other by their index in the
/// lists of the `Machine`.
struct MachineState {
  enum class Kind { Simple, Composite, Final };

  /// In the place of a state: the chart itself, which holds the outermost states.
  static constexpr int kChart = -1;
  /// In the place of a transition: there is none.
  static constexpr int kNone = -1;

  std::int32_t id = 0;  ///< of the object
  int line = 0;         ///< of the model file where its record begins
  std::string title;    ///< as the chart shows it
  std::string name;     ///< an identifier, unique among the states; it may be a word of a language
  Kind kind = Kind::Simple;
  int parent = kChart;
  int depth = 0;              ///< 0 for an outermost state
  std::vector<int> children;  ///< states, by id
  MachineText entry;
  MachineText exit;
  /// Coming to the border again enters the child that was left, not the initial one. Only a
  /// composite has it.
  bool history = false;
  int initial = kNone;        ///< transition from the mark inside a composite
  std::vector<int> outgoing;  ///< transitions, in the order in which they are tried
};

}  // namespace morvane
