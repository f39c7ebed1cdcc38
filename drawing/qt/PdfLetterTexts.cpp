#include "drawing/qt/PdfLetterTexts.h"

#include <cmath>

#include <QString>

#include "drawing/qt/LaidOutLine.h"

namespace morvane {

PdfLetterTexts::PdfLetterTexts(const LaidOutLine& line, const QString& text) {
  const auto size = static_cast<int>(text.size());
  for (int at = 0, end = 0; at < size; at = end) {
    end = at + 1;
    while (end < size && !line.BeginsLetter(end)) ++end;
    const QList<QGlyphRun> runs = line.Glyphs(at, end - at);
    // Which one of several stands for what is not to be told.
    if (runs.size() != 1 || runs.first().glyphIndexes().size() != 1) continue;
    const Key key =
        KeyOf(runs.first().glyphIndexes().first(), runs.first().positions().first().x());
    texts[key] += text.mid(at, end - at).toStdU32String();
  }
}

PdfLetterTexts::Key PdfLetterTexts::KeyOf(quint32 glyph, double x) {
  constexpr double steps = 64;
  return {glyph, std::lround(x * steps)};
}

std::u32string PdfLetterTexts::Of(quint32 glyph, double x) const {
  const auto found = texts.find(KeyOf(glyph, x));
  return found != texts.end() ? found->second : std::u32string();
}

}  // namespace morvane
