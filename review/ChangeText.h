#pragma once

#include <string>
#include <vector>

#include "review/ChartDiff.h"

namespace morvane {

/// What has changed in words, in the user's language.
class ChangeText {
 public:
  /// What an added or a removed object does and says, or what of that has changed, a line each.
  static std::vector<std::string> Meaning(const ObjectChange& change);
  /// How a changed object stands and looks otherwise, in a few words each.
  static std::vector<std::string> Look(const ObjectChange& change);
  /// Lines for changed texts.
  static std::vector<std::string> Of(const FactChange& change);
  static std::string WholeShift(POINT shift);
};

}  // namespace morvane
