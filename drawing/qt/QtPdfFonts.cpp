#include "drawing/qt/QtPdfFonts.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "drawing/qt/LaidOutLine.h"
#include "drawing/qt/PdfFace.h"
#include "drawing/qt/PdfLetterTexts.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

using Characters = std::unordered_map<quint32, char32_t>;

/// How much thicker the window makes the strokes of a face that has to look bold, in ems.
constexpr double kThickening = 1.0 / 48;

/// What each of a font's letters stands for, as far as the text tells.
Characters CharactersOf(const QRawFont& font, const QString& text) {
  Characters characters;
  const auto add = [&](char32_t c) {
    const QList<quint32> glyphs = font.glyphIndexesForString(QString::fromUcs4(&c, 1));
    if (glyphs.size() == 1 && glyphs.first() != 0) characters.emplace(glyphs.first(), c);
  };
  for (const char32_t c : text.toUcs4()) {
    add(c);
    // A bracket that runs from right to left shows the letter of the other one.
    if (const char32_t other = QChar::mirroredChar(c); other != c) add(other);
  }
  return characters;
}

/// The frames that the toolkit paints where no font has a letter are of a font without a face,
/// which must not be asked for its name.
bool HasFace(const QRawFont& font) { return !font.fontTable("maxp").isEmpty(); }

}  // namespace

QtPdfFonts::QtPdfFonts(QtFontCache& fonts) : fonts(fonts) {}

QtPdfFonts::~QtPdfFonts() = default;

int QtPdfFonts::FaceOf(const QRawFont& font) {
  const QString key =
      font.familyName() + u'/' + font.styleName() + u'/' + QString::number(font.weight());
  const auto [found, isNew] = faceOf.try_emplace(key, static_cast<int>(faces.size()));
  if (isNew) faces.push_back(std::make_unique<PdfFace>(font));
  return found->second;
}

int QtPdfFonts::AdvanceOf(int face, std::uint16_t glyph) {
  return faces[static_cast<std::size_t>(face)]->AdvanceOf(glyph);
}

const PdfFonts::Line& QtPdfFonts::Shape(const CFont& wanted, std::string_view utf8) {
  const QtFont& font = fonts.Get(wanted);
  line.runs.clear();
  line.needsText = false;
  if (AddAscii(font, utf8)) return line;
  double x = 0;
  while (!utf8.empty()) {
    const std::string_view piece = QtFont::TakePiece(utf8);
    AddPiece(font, piece, x);
    x += font.Advance(piece);
  }
  return line;
}

bool QtPdfFonts::AddAscii(const QtFont& font, std::string_view utf8) {
  const QGlyphRun* glyphs = font.Glyphs(utf8);
  if (glyphs == nullptr) return false;
  const QRawFont raw = glyphs->rawFont();
  if (!HasFace(raw)) return false;
  const int number = FaceOf(raw);
  PdfFace& face = *faces[static_cast<std::size_t>(number)];
  if (face.Kind() == PdfFace::Outlines::None) return false;
  const QList<quint32> ids = glyphs->glyphIndexes();
  const QList<QPointF> places = glyphs->positions();
  Run& run = line.runs.emplace_back();
  run.face = number;
  run.size = raw.pixelSize();
  run.extra = face.IsThickenedFor(font.Font().weight()) ? run.size * kThickening : 0;
  run.glyphs.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto id = static_cast<std::uint16_t>(ids[static_cast<qsizetype>(i)]);
    const auto code = static_cast<unsigned char>(utf8[i]);
    // Control characters take the place of a blank.
    const char32_t character = code < ' ' ? U' ' : char32_t{code};
    if (!face.Use(id, {&character, 1})) line.needsText = true;
    run.glyphs.push_back({id, places[static_cast<qsizetype>(i)].x(), 0});
  }
  return true;
}

void QtPdfFonts::AddPiece(const QtFont& font, std::string_view utf8, double x) {
  const QString text = QtFont::Printable(utf8);
  const LaidOutLine laidOut(text, font.Font());
  QList<QGlyphRun> runs = laidOut.Glyphs();
  // They come in an order that changes from run to run of the program.
  std::ranges::stable_sort(runs, {}, [](const QGlyphRun& r) { return r.positions().value(0).x(); });
  const bool turns =
      std::ranges::any_of(runs, [](const QGlyphRun& run) { return run.isRightToLeft(); });
  const PdfLetterTexts texts = turns ? PdfLetterTexts(laidOut, text) : PdfLetterTexts();
  qsizetype shown = 0;
  for (const QGlyphRun& glyphs : std::as_const(runs)) {
    const QRawFont raw = glyphs.rawFont();
    shown += glyphs.glyphIndexes().size();
    if (!HasFace(raw)) {
      line.needsText = true;
      continue;
    }
    const int number = FaceOf(raw);
    PdfFace& face = *faces[static_cast<std::size_t>(number)];
    if (face.Kind() == PdfFace::Outlines::None) {
      line.needsText = line.needsText || turns;
      continue;
    }
    const auto characters = CharactersOf(raw, text);
    Run& run = line.runs.emplace_back();
    run.face = number;
    run.size = raw.pixelSize();
    run.extra = face.IsThickenedFor(font.Font().weight()) ? run.size * kThickening : 0;
    const QList<quint32> ids = glyphs.glyphIndexes();
    const QList<QPointF> places = glyphs.positions();
    for (qsizetype i = 0; i < ids.size(); ++i) {
      const auto id = static_cast<std::uint16_t>(ids[i]);
      const auto known = characters.find(ids[i]);
      const std::u32string stands = known != characters.end() ? std::u32string(1, known->second)
                                                              : texts.Of(ids[i], places[i].x());
      if (stands.empty()) face.Use(id);
      if (stands.empty() || !face.Use(id, stands)) line.needsText = true;
      run.glyphs.push_back({id, x + places[i].x(), places[i].y() - laidOut.Ascent()});
    }
  }
  // Readers turn the letters of such a line round by themselves, and would turn a text round, too.
  if (!turns && shown != static_cast<qsizetype>(text.toUcs4().size())) line.needsText = true;
}

}  // namespace morvane
