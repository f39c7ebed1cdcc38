#pragma once

#include <iosfwd>
#include <string>

namespace morvane {

// What compares and describes charts without a window.

/// As a program that compares files is expected to answer.
struct DiffStatus {
  static constexpr int kSame = 0;
  static constexpr int kDifferent = 1;
  static constexpr int kTrouble = 2;
};

/// Prints what two files don't share or, with a `picture`, paints it into that file. Gives the exit
/// status.
int RunDiff(const std::string& before, const std::string& after, const std::string& picture,
            std::ostream& out, std::ostream& err);

/// Prints a chart as text. False, after the reason on `err`, if it can't be read.
bool RunDescribe(const std::string& file, std::ostream& out, std::ostream& err);

}  // namespace morvane
