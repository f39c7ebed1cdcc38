#include "machine/ProblemList.h"

#include <algorithm>
#include <utility>

#include "machine/DrawnChart.h"

namespace morvane {

void ProblemList::Error(const DrawnObject& object, const std::string& what, int line) {
  hasErrors = true;
  Add(Problem::Severity::Error, object, what, line);
}

void ProblemList::Warning(const DrawnObject& object, const std::string& what, int line) {
  Add(Problem::Severity::Warning, object, what, line);
}

void ProblemList::Error(std::string message) {
  hasErrors = true;
  problems.push_back({Problem::Severity::Error, 0, 0, std::move(message)});
}

void ProblemList::Add(Problem::Severity severity, const DrawnObject& object,
                      const std::string& what, int line) {
  problems.push_back(
      {severity, object.id, line > 0 ? line : object.line, object.Name() + ' ' + what});
}

std::vector<Problem> ProblemList::Sorted() const {
  std::vector<Problem> sorted = problems;
  std::ranges::stable_sort(sorted, {}, &Problem::line);
  return sorted;
}

}  // namespace morvane
