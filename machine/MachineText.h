#pragma once

#include <string>

namespace morvane {

/// A piece of code that the user wrote into a chart, verbatim, in UTF-8 and with LF between its
/// lines.
struct MachineText {
  std::string text;
  int line = 0;  ///< of the model file where it begins, counted from 1

  /// Nothing, or nothing but white space.
  bool IsEmpty() const { return text.find_first_not_of(" \t\r\n") == std::string::npos; }
};

}  // namespace morvane
