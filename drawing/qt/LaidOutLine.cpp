#include "drawing/qt/LaidOutLine.h"

#include <QTextOption>

namespace morvane {

LaidOutLine::LaidOutLine(const QString& text, const QFont& font) : layout(text, font) {
  constexpr double unlimited = 1e6;
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  layout.setTextOption(option);
  layout.beginLayout();
  line = layout.createLine();
  if (!line.isValid()) return;
  line.setLineWidth(unlimited);
  layout.endLayout();
}

void LaidOutLine::Paint(QPainter& painter, QPointF baseline) const {
  if (line.isValid()) line.draw(&painter, baseline - QPointF(0, line.ascent()));
}

std::optional<LaidOutLine::Place> LaidOutLine::PlaceOf(int at) const {
  for (const QGlyphRun& glyphs : layout.glyphRuns(at, 1)) {
    const QList<QPointF> places = glyphs.positions();
    if (!places.isEmpty()) return Place{places.first().x(), glyphs.isRightToLeft()};
  }
  return std::nullopt;
}

}  // namespace morvane
