#include "drawing/qt/QtText.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include <QStringList>

#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "drawing/TextDirection.h"

namespace morvane {

namespace {

constexpr int kMaxPixelSize = 4000;
constexpr double kSmallestSpacing = 1.0 / 64;
constexpr const char* kStandInFace = "DejaVu Sans";
constexpr std::size_t kLongestPiece = 1024;
constexpr std::size_t kLongestTurningPiece = 8192;
/// Texts up to this length are worth remembering.
constexpr std::size_t kRememberedLength = 256;

QFont MakeFont(const CFont& font) {
  QFont made;
  QStringList families;
  if (!font.face.empty()) families << ToQString(font.face);
  families << kStandInFace;
  made.setFamilies(families);
  made.setHintingPreference(QFont::PreferNoHinting);
  made.setStyleStrategy(QFont::PreferAntialias);
  // Letters stand at their own widths, so that the width of a text is the sum of its letters.
  // Spacing of the smallest step keeps two letters from becoming one sign.
  made.setKerning(false);
  made.setLetterSpacing(QFont::AbsoluteSpacing, kSmallestSpacing);
  made.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight, 1, 1000)));
  const std::int64_t height = font.height;
  std::int64_t size = height < 0 ? -height : height;
  if (size == 0) size = -CFont{}.height;
  made.setPixelSize(static_cast<int>(std::clamp<std::int64_t>(size, 1, kMaxPixelSize)));
  if (height > 0) {
    // A positive height is that of the whole line.
    const QFontMetricsF metrics(made);
    const double line = metrics.ascent() + metrics.descent();
    const double em = made.pixelSize() * made.pixelSize() / std::max(line, 1.0);
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(em))));
  }
  return made;
}

}  // namespace

QString FromUtf8(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString ToQString(std::string_view bytes) { return FromUtf8(ToUtf8(bytes)); }

std::string ToBytes(const QString& text) { return text.toStdString(); }

QtFont::QtFont(const CFont& wanted)
    : font(MakeFont(wanted)), metrics(font), rawFont(QRawFont::fromFont(font)) {
  ascent = metrics.ascent();
  for (std::size_t c = 0; c < kAsciiCount; ++c) {
    const char letter = static_cast<char>(c);
    const QString text = Printable({&letter, 1});
    ascii[c] = metrics.horizontalAdvance(text);
    const QList<quint32> found = rawFont.glyphIndexesForString(text);
    glyphOf[c] = found.size() == 1 ? found.first() : 0;
  }
  run.setRawFont(rawFont);
}

const QGlyphRun* QtFont::Glyphs(std::string_view utf8) const {
  glyphs.clear();
  places.clear();
  double x = 0;
  for (const char c : utf8) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= kAsciiCount || glyphOf[code] == 0) return nullptr;
    glyphs << glyphOf[code];
    places << QPointF(x, 0);
    x += ascii[code];
  }
  run.setRawData(glyphs.constData(), places.constData(), static_cast<int>(glyphs.size()));
  return &run;
}

QString QtFont::Printable(std::string_view utf8) {
  QString text = FromUtf8(utf8);
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text.at(i).category() == QChar::Other_Control) text[i] = u' ';
  }
  return text;
}

TextMetrics QtFont::Metrics() const {
  const auto up = static_cast<std::int32_t>(std::lround(ascent));
  const auto down = static_cast<std::int32_t>(std::lround(metrics.descent()));
  return {std::max(1, up + down), up};
}

double QtFont::Advance(std::string_view utf8) const {
  double sum = 0;
  for (const char c : utf8) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= kAsciiCount) return MeasureLong(utf8);
    sum += ascii[code];
  }
  return sum;
}

std::string_view QtFont::TakePiece(std::string_view& utf8) {
  // Parts of a line that runs both ways do not stand one behind the other.
  const bool turns =
      utf8.size() > kLongestPiece && MayRunRightToLeft(utf8.substr(0, kLongestTurningPiece));
  std::string_view piece = LetterPrefix(utf8, turns ? kLongestTurningPiece : kLongestPiece);
  if (piece.empty()) piece = utf8;
  utf8.remove_prefix(piece.size());
  return piece;
}

double QtFont::MeasureLong(std::string_view utf8) const {
  if (utf8.size() > kRememberedLength) {
    double sum = 0;
    while (!utf8.empty()) sum += metrics.horizontalAdvance(Printable(TakePiece(utf8)));
    return sum;
  }
  const auto key = QByteArray::fromRawData(utf8.data(), static_cast<qsizetype>(utf8.size()));
  if (const auto found = measured.constFind(key); found != measured.cend()) return *found;
  if (measured.size() >= kMaxCached) measured.clear();
  const double width = metrics.horizontalAdvance(Printable(utf8));
  measured.insert(QByteArray(key.constData(), key.size()), width);
  return width;
}

bool QtFontCache::Less::operator()(const CFont& a, const CFont& b) const {
  return std::tie(a.height, a.weight, a.face) < std::tie(b.height, b.weight, b.face);
}

const QtFont& QtFontCache::Get(const CFont& font) {
  const auto found = fonts.find(font);
  if (found != fonts.end()) return *found->second;
  if (fonts.size() >= kMaxFonts) fonts.clear();
  return *fonts.emplace(font, std::make_unique<QtFont>(font)).first->second;
}

}  // namespace morvane
