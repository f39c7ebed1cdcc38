#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/DrawingTools.h"

namespace morvane {

/// The fonts of a page: they say which letters of which face show a text.
class PdfFonts {
 public:
  struct Glyph {
    std::uint16_t id = 0;
    double x = 0;  ///< from the beginning of the line, logical units
    double y = 0;  ///< down from the baseline
  };
  /// Letters of one face that follow each other.
  struct Run {
    int face = 0;      ///< counted from 0; what the page names its font by
    double size = 0;   ///< of an em, logical units
    double extra = 0;  ///< by how much strokes are thicker than the face's own, logical units
    std::vector<Glyph> glyphs;
  };
  struct Line {
    std::vector<Run> runs;
    /// The letters alone don't tell what the text is.
    bool needsText = false;
  };

  virtual ~PdfFonts() = default;
  /// Lays out one line of valid UTF-8. The answer holds until the next call.
  virtual const Line& Shape(const CFont& font, std::string_view utf8) = 0;
  /// How far a letter moves the next one, in thousandths of an em, as the page's font says.
  virtual int AdvanceOf(int face, std::uint16_t glyph) = 0;
};

}  // namespace morvane
