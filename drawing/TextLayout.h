#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace morvane {

/// Breaks texts into lines. `measure` gives the width of a piece of one line; `width` is in the
/// same unit.
class TextLayout {
 public:
  using Measure = std::function<std::int32_t(std::string_view)>;

  TextLayout(Measure measure, std::int64_t width, bool wordBreak);

  /// The lines of `utf8` as views into it, without their line breaks (CR LF, LF or CR) and, where a
  /// line was broken at blanks, without those. At most `maxLines` of them. A piece that is wider
  /// than a line and may not be parted stays whole and is left to the clip.
  std::vector<std::string_view> Break(std::string_view utf8, std::size_t maxLines) const;
  /// A line of more bytes than that is wider than `width`, whatever its letters.
  static std::size_t MostBytes(std::int64_t width);

 private:
  void BreakParagraph(std::string_view paragraph, std::size_t maxLines,
                      std::vector<std::string_view>& lines) const;
  std::int32_t MeasureBounded(std::string_view piece) const;

  Measure measure;
  std::int64_t width;
  bool wordBreak;
};

}  // namespace morvane
