#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace morvane {

/// The steps that a user of a chart expects to find in its history, noted beside it: the text of
/// each, without the line of the zoom, which is no step.
class StepBook {
 public:
  /// The chart has a text now; false if it equals the present step and is none of its own.
  bool Note(const std::string& modelText);
  void StepBack() { --current; }
  void StepForward() { ++current; }
  bool CanStepBack() const { return current > 0; }
  bool CanStepForward() const { return current + 1 < steps.size(); }
  const std::string& Current() const { return steps[current]; }
  std::size_t Count() const { return steps.size(); }

  static std::string WithoutZoom(const std::string& modelText);

 private:
  std::vector<std::string> steps;
  std::size_t current = 0;
};

}  // namespace morvane
