#include "machine/Problem.h"

#include <algorithm>

namespace morvane {

namespace {

bool IsError(const Problem& problem) { return problem.severity == Problem::Severity::Error; }

std::string Counted(std::ptrdiff_t count, const char* what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

}  // namespace

bool HasErrors(const std::vector<Problem>& problems) {
  return std::ranges::any_of(problems, IsError);
}

std::string FormatProblem(std::string_view file, const Problem& problem) {
  std::string line(file);
  if (problem.line > 0) line += ':' + std::to_string(problem.line);
  return line + (IsError(problem) ? ": error: " : ": warning: ") + problem.message;
}

std::string SummaryOf(const std::vector<Problem>& problems) {
  const std::ptrdiff_t errors = std::ranges::count_if(problems, IsError);
  const std::ptrdiff_t warnings = std::ssize(problems) - errors;
  std::string summary;
  if (errors > 0) summary = Counted(errors, "error");
  if (errors > 0 && warnings > 0) summary += ", ";
  if (warnings > 0) summary += Counted(warnings, "warning");
  return summary;
}

}  // namespace morvane
