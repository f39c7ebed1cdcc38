#pragma once

#include <string>
#include <vector>

#include "simulation/TestRun.h"

namespace morvane {

/// What came of the tests of charts, in the words of a program that gathers such results.
class TestReport {
 public:
  enum class Form { Tap, JUnit };

  explicit TestReport(Form form) : form(form) {}

  /// `file` is the tests' own; `chart` names the group that they are.
  void Add(const std::string& file, const std::string& chart,
           const std::vector<TestVerdict>& verdicts);
  std::string Text() const;
  bool HasFailed() const { return failures > 0; }

 private:
  struct Entry {
    std::string file;
    std::string chart;
    TestVerdict verdict;
  };
  std::string Tap() const;
  std::string JUnit() const;

  Form form;
  std::vector<Entry> entries;
  std::size_t failures = 0;
};

}  // namespace morvane
