#include "drawing/qt/QtTextBreaks.h"

#include <QTextBoundaryFinder>

#include "drawing/TextCodec.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

std::vector<std::size_t> Breaks(std::string_view utf8, QTextBoundaryFinder::BoundaryType type) {
  const QString text = FromUtf8(utf8);
  QTextBoundaryFinder finder(type, text);
  std::vector<std::size_t> places;
  qsizetype units = 0;
  std::size_t bytes = 0;
  for (qsizetype at = finder.toNextBoundary(); at >= 0 && at < text.size();
       at = finder.toNextBoundary()) {
    for (; units < at; ++units) {
      // The second half of a pair has no bytes of its own.
      if (!text.at(units).isLowSurrogate()) bytes += DecodeUtf8(utf8, bytes).length;
    }
    places.push_back(bytes);
  }
  return places;
}

}  // namespace

std::vector<std::size_t> QtTextBreaks::LineBreaks(std::string_view utf8) const {
  return Breaks(utf8, QTextBoundaryFinder::Line);
}

std::vector<std::size_t> QtTextBreaks::LetterBreaks(std::string_view utf8) const {
  return Breaks(utf8, QTextBoundaryFinder::Grapheme);
}

}  // namespace morvane
