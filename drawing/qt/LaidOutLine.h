#pragma once

#include <optional>

#include <QGlyphRun>
#include <QList>
#include <QPointF>
#include <QTextLayout>

class QFont;
class QPainter;
class QString;

namespace morvane {

/// One line of text as the toolkit sets it, in the direction of its first letter that has one. It
/// begins at the left edge of its letters, whatever the direction. Places in it are UTF-16 units.
class LaidOutLine {
 public:
  struct Place {
    double x = 0;         ///< from the left edge of the line
    bool turned = false;  ///< the letter runs from right to left
  };

  /// The text is as `QtFont::Printable` gives it.
  LaidOutLine(const QString& text, const QFont& font);
  LaidOutLine(const LaidOutLine&) = delete;
  LaidOutLine& operator=(const LaidOutLine&) = delete;

  /// With the baseline's start at a point.
  void Paint(QPainter& painter, QPointF baseline) const;
  QList<QGlyphRun> Glyphs() const { return layout.glyphRuns(); }
  /// Those of some letters.
  QList<QGlyphRun> Glyphs(int at, int count) const { return layout.glyphRuns(at, count); }
  /// From the top of the line to its baseline.
  double Ascent() const { return line.isValid() ? line.ascent() : 0; }

  /// Whether a letter begins at a place, as a reader sees them.
  bool BeginsLetter(int at) const { return layout.isValidCursorPosition(at); }
  /// Where the letter at a place is painted; none if nothing shows there.
  std::optional<Place> PlaceOf(int at) const;

 private:
  QTextLayout layout;
  QTextLine line;
};

}  // namespace morvane
