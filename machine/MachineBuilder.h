#pragma once

#include <optional>
#include <string>
#include <vector>

#include "machine/Machine.h"
#include "machine/Problem.h"

namespace morvane {

/// What became of a chart: its machine, unless there were errors, and what is to be said of it in
/// the order of the file.
struct BuiltMachine {
  std::optional<Machine> machine;
  std::vector<Problem> problems;
};

/// Finds out what a chart means. It goes by phases (reading, nesting, structure, names) and stops
/// behind the one that found errors, so that one slip gives one message.
class MachineBuilder {
 public:
  /// A whole model text, with LF or CR LF between the lines.
  static BuiltMachine FromText(const std::string& text);
  /// A model file. One that can't be read is an error.
  static BuiltMachine FromFile(const std::string& path);
};

}  // namespace morvane
