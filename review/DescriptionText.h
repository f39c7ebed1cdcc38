#pragma once

#include <iosfwd>

namespace morvane {

struct ChartDescription;

/// A chart as text, a fact a line, each object under its name and all by id: for programs that
/// compare texts. The same chart gives the same text, whatever the order of its objects.
class DescriptionText {
 public:
  static void Write(const ChartDescription& description, std::ostream& out);
};

}  // namespace morvane
