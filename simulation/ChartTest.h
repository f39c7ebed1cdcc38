#pragma once

#include <string>
#include <vector>

namespace morvane {

/// A case of a chart's tests: what is done with the chart, line by line, and what is expected.
struct ChartTest {
  struct Line {
    enum class Kind {
      Send,           ///< `name` is an event
      Guard,          ///< the guard of `name`, a transition's number or a guard's text, is `holds`
      Set,            ///< the variable `name` gets the value `text`
      Expect,         ///< the state `name` is active
      ExpectNot,      ///< the state `name` is not active
      ExpectIgnored,  ///< no transition was there for the event that was sent last
      ExpectThat      ///< the condition `text` holds
    };
    Kind kind = Kind::Send;
    std::string name{};
    std::string text{};
    bool holds = false;
    int number = 0;  ///< of the line in the file
  };

  std::string name;
  int number = 0;  ///< of the line in the file
  std::vector<Line> lines{};
};

/// The file of a chart's tests, NAME.mrvtest beside NAME.mrv.
///
///     # what stands behind the sign is not read
///     case Opens when called
///     guard 112 true
///     set floor 3
///     send call
///     expect Opened
///     expect not Closed
///     expect ignored
///     expect that floor == 3
struct ChartTestFile {
  std::vector<ChartTest> cases;
  /// What is wrong with the text, "LINE: REASON" for each line.
  std::vector<std::string> faults;

  static ChartTestFile Parse(const std::string& text);
  /// The name of the file that belongs to a chart.
  static std::string PathFor(const std::string& chart);
  /// The text of a case, with an empty line in front.
  static std::string TextOf(const ChartTest& test);
};

}  // namespace morvane
