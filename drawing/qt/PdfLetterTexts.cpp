#include "drawing/qt/PdfLetterTexts.h"

#include <cmath>
#include <string_view>

#include <QGlyphRun>
#include <QRawFont>
#include <QString>

#include "drawing/qt/LaidOutLine.h"

namespace morvane {

PdfLetterTexts::PdfLetterTexts(const LaidOutLine& line, const QString& text) {
  const auto size = static_cast<int>(text.size());
  for (int at = 0, end = 0; at < size; at = end) {
    end = at + 1;
    while (end < size && !line.BeginsLetter(end)) ++end;
    const QList<QGlyphRun> runs = line.Glyphs(at, end - at);
    // Letters and marks of two fonts are characters by themselves.
    if (runs.size() == 1) Add(runs.first(), text.mid(at, end - at).toStdU32String());
  }
}

/// Of a letter with its marks. What is a character's own is known without them; of the rest the one
/// that takes room is the letter, and at most one more is what the marks have become.
void PdfLetterTexts::Add(const QGlyphRun& letter, std::u32string characters) {
  const QRawFont font = letter.rawFont();
  QList<quint32> ids = letter.glyphIndexes();
  QList<QPointF> places = letter.positions();
  for (std::size_t i = 0; ids.size() > 1 && i < characters.size();) {
    const QString one = QString::fromUcs4(&characters[i], 1);
    const qsizetype own = ids.indexOf(font.glyphIndexesForString(one).value(0));
    if (own < 0) {
      ++i;
      continue;
    }
    ids.removeAt(own);
    places.removeAt(own);
    characters.erase(i, 1);
  }
  const auto add = [&](qsizetype at, std::u32string_view what) {
    texts[KeyOf(ids[at], places[at].x())] += what;
  };
  if (ids.size() == 1) add(0, characters);
  if (ids.size() != 2 || characters.size() < 2) return;
  const qsizetype base = font.advancesForGlyphIndexes(ids).value(0).x() > 0 ? 0 : 1;
  add(base, characters.substr(0, 1));
  add(1 - base, characters.substr(1));
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
