#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QString>

#include "drawing/DrawingTools.h"

namespace morvane {

/// Bytes as a chart holds them, for a window: UTF-8 or else Windows-1252.
QString ToQString(std::string_view bytes);
/// A text that is known to be valid UTF-8.
QString FromUtf8(std::string_view utf8);
std::string ToBytes(const QString& text);
/// A path of this system as Qt wants it, and back: byte for byte, or where paths are letters and
/// Qt has separators of its own, with those of the system.
QString ToQPath(const std::string& path);
std::string FromQPath(const QString& path);
/// A path as the user knows it.
QString ShownPath(const std::string& path);

/// One font, measured without hinting at its logical size, so that lines break at the same places
/// whatever the scale is.
class QtFont {
 public:
  explicit QtFont(const CFont& font);

  const QFont& Font() const { return font; }
  double Ascent() const { return ascent; }
  TextMetrics Metrics() const;
  /// The width of one line in logical units.
  double Advance(std::string_view utf8) const;
  /// Takes the part off a line that is measured and painted by itself: all of one that isn't very
  /// long, so that no part is laid out at a cost beyond its length.
  static std::string_view TakePiece(std::string_view& utf8);
  /// The letters of a line of ASCII, each at its own width, with the baseline's start as origin.
  /// Null if the text holds others or the font lacks one; valid until the next call.
  const QGlyphRun* Glyphs(std::string_view utf8) const;
  /// A line as it is painted: control characters take the place of a blank.
  static QString Printable(std::string_view utf8);

 private:
  static constexpr std::size_t kAsciiCount = 128;
  static constexpr int kMaxCached = 4096;

  double MeasureLong(std::string_view utf8) const;

  QFont font;
  QFontMetricsF metrics;
  double ascent = 0;
  std::array<double, kAsciiCount> ascii{};
  QRawFont rawFont;
  std::array<quint32, kAsciiCount> glyphOf{};  ///< 0 for none
  mutable QHash<QByteArray, double> measured;
  mutable QList<quint32> glyphs;
  mutable QList<QPointF> places;
  mutable QGlyphRun run;
};

/// The fonts that drawing contexts of one owner have used.
class QtFontCache {
 public:
  /// Stays valid until the next call.
  const QtFont& Get(const CFont& font);

 private:
  static constexpr std::size_t kMaxFonts = 64;
  struct Less {
    bool operator()(const CFont& a, const CFont& b) const;
  };
  std::map<CFont, std::unique_ptr<QtFont>, Less> fonts;
};

}  // namespace morvane
