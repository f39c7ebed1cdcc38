#include "machine/ProblemList.h"

#include <algorithm>
#include <utility>

#include "machine/DrawnChart.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// What the user wrote may hold anything; a problem is one line.
std::string OneLine(std::string text) {
  constexpr unsigned char firstVisible = ' ';
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < firstVisible; }, ' ');
  return text;
}

}  // namespace

void ProblemList::Error(const DrawnObject& object, const std::string& what, int line) {
  hasErrors = true;
  Add(Problem::Severity::Error, object, what, line);
}

void ProblemList::Warning(const DrawnObject& object, const std::string& what, int line) {
  Add(Problem::Severity::Warning, object, what, line);
}

void ProblemList::Error(std::string message) {
  hasErrors = true;
  problems.push_back({Problem::Severity::Error, 0, 0, OneLine(std::move(message))});
}

void ProblemList::Add(Problem::Severity severity, const DrawnObject& object,
                      const std::string& what, int line) {
  std::string name = OneLine(object.Name());
  std::string complaint = OneLine(what);
  std::string message = Said(IDS_PROBLEM_OF_OBJECT, {name, complaint});
  problems.push_back({severity, object.id, line > 0 ? line : object.line, std::move(message),
                      std::move(name), std::move(complaint)});
}

std::vector<Problem> ProblemList::Sorted() const {
  std::vector<Problem> sorted = problems;
  std::ranges::stable_sort(sorted, {}, &Problem::line);
  return sorted;
}

}  // namespace morvane
