#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What differs between two texts, line by line.
class LineDiff {
 public:
  /// Texts that differ in more lines than this, beside a common beginning and end, are shown as all
  /// replaced: what they share isn't worth the time.
  static constexpr int kMaxEdits = 1000;

  /// The lines of a small listing: "-" before one that went, "+" before one that came, a blank
  /// before one of the few around them that stayed, and "@@ -LINE +LINE @@" where others were left
  /// out. What is no character stands as one: ^M. Empty for equal texts.
  static std::vector<std::string> Listing(std::string_view before, std::string_view after);

  /// A line of a text for a reader: valid UTF-8, and control characters as ^M.
  static std::string Readable(std::string_view line);
  /// The lines of a text; an empty text has none.
  static std::vector<std::string_view> Lines(std::string_view text);
};

}  // namespace morvane
