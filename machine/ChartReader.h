#pragma once

#include <string>

#include "machine/DrawnChart.h"

namespace morvane {

/// Reads a model text by means of the shapes that the designer would place on a chart, and notes
/// what they are and at which lines their texts stand.
class ChartReader {
 public:
  /// A text with LF between the lines. Throws a text for the user.
  static DrawnChart Read(const std::string& text);
};

}  // namespace morvane
