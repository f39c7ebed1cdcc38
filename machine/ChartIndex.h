#pragma once

#include <cstdint>
#include <unordered_map>

namespace morvane {

class ProblemList;
struct DrawnChart;
struct DrawnObject;

/// The objects of a chart by id. The chart has to outlive it.
class ChartIndex {
 public:
  /// Two objects with one id are an error.
  ChartIndex(const DrawnChart& chart, ProblemList& problems);

  /// Null for 0 and for an id that no object has.
  const DrawnObject* Find(std::int32_t id) const;

 private:
  std::unordered_map<std::int32_t, const DrawnObject*> objects;
};

}  // namespace morvane
