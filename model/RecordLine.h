#pragma once

#include <string>

namespace morvane {

/// The first two words of a line between records; empty where there is none.
struct RecordLine {
  std::string first;
  std::string second;

  static RecordLine Parse(const std::string& line);
};

}  // namespace morvane
