#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "drawing/TextRun.h"
#include "drawing/qt/LaidOutLine.h"

namespace morvane {

class QtFont;

/// Finds the parts of a line that run in one direction each, and where the toolkit paints them.
class QtTextRuns {
 public:
  /// The parts of one line of valid UTF-8, views into it, in the order of the text.
  static std::vector<TextRun> Of(const QtFont& font, std::string_view utf8);

 private:
  QtTextRuns(const QtFont& font, std::string_view piece) : font(font), piece(piece) {}

  void Find();
  void Add(std::string_view part, const std::optional<LaidOutLine::Place>& place);
  void Join(TextRun& run, std::string_view part, double width) const;
  void Place(double& left);

  const QtFont& font;
  std::string_view piece;
  std::vector<TextRun> runs;  ///< each with where its first letter stands, until it is placed
};

}  // namespace morvane
