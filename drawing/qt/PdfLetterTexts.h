#pragma once

#include <map>
#include <string>
#include <utility>

#include <QtGlobal>

class QGlyphRun;
class QString;

namespace morvane {

class LaidOutLine;

/// What the letters of a line stand for that are no character's own: the forms that letters of
/// Arabic take beside others, and the signs that two of them become.
class PdfLetterTexts {
 public:
  /// Of a line without any.
  PdfLetterTexts() = default;
  PdfLetterTexts(const LaidOutLine& line, const QString& text);

  /// The text of the letter that stands at `x` in the line; empty if that isn't known.
  std::u32string Of(quint32 glyph, double x) const;

 private:
  using Key = std::pair<quint32, long>;

  void Add(const QGlyphRun& letter, std::u32string characters);
  static Key KeyOf(quint32 glyph, double x);

  std::map<Key, std::u32string> texts;
};

}  // namespace morvane
