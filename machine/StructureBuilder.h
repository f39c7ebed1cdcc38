#pragma once

#include <vector>

#include "machine/Structure.h"

namespace morvane {

class ChartIndex;
class ProblemList;
struct DrawnChart;

/// Makes a machine out of a chart whose states are known to nest, and checks that each of its parts
/// has a meaning.
class StructureBuilder {
 public:
  /// The structure refers to the chart.
  static Structure Build(const DrawnChart& chart, const ChartIndex& index,
                         const std::vector<int>& parents, ProblemList& problems);
};

}  // namespace morvane
