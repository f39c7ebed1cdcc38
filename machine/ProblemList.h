#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "machine/Problem.h"

namespace morvane {

struct DrawnObject;

/// Gathers what is wrong with a chart.
class ProblemList {
 public:
  /// `what` is said of the object, in the language of the user; the place is its record, or another
  /// line.
  void Error(const DrawnObject& object, const std::string& what, int line = 0);
  void Warning(const DrawnObject& object, const std::string& what, int line = 0);
  /// An error of no object.
  void Error(std::string message);

  /// Of the problem that was added last.
  void SetRemedy(Problem::Remedy remedy) { problems.back().remedy = remedy; }

  bool HasErrors() const { return hasErrors; }
  /// In the order of the lines.
  std::vector<Problem> Sorted() const;

 private:
  void Add(Problem::Severity severity, const DrawnObject& object, const std::string& what,
           int line);

  std::vector<Problem> problems;
  bool hasErrors = false;
};

}  // namespace morvane
