#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "drawing/Geometry.h"

namespace morvane {

// What is selected into a drawing context: pens, brushes and fonts as plain values, with the
// modes of drawing.

enum class PenStyle { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4, Null = 5 };

/// The lengths of strokes and gaps in turn, device pixels; empty for a style without gaps.
std::span<const int> DashPatternOf(PenStyle style);

/// A pen. Width 0 means one device pixel at any scale; another width is in logical units. A pen of
/// more than one pixel draws every style solid.
struct CPen {
  PenStyle style = PenStyle::Solid;
  std::int32_t width = 0;
  COLORREF colour = 0;
  friend bool operator==(const CPen&, const CPen&) = default;
};

/// A brush, solid or hollow. A fresh context holds the solid white one.
struct CBrush {
  COLORREF colour = 0xFFFFFF;
  bool hollow = false;
  static constexpr CBrush Solid(COLORREF c) { return {c, false}; }
  static constexpr CBrush Null() { return {0xFFFFFF, true}; }
  friend bool operator==(const CBrush&, const CBrush&) = default;
};

/// A font. A negative height is the height of the letters without internal leading, in logical
/// units. Copying is cheap enough for one selection a paint.
struct CFont {
  static constexpr int kNormalWeight = 400;
  static constexpr int kBoldWeight = 700;

  std::string face;
  std::int32_t height = -11;
  int weight = kNormalWeight;

  /// A font of `tenths` tenths of a point on a device of 96 pixels to the inch.
  static CFont FromTenthsOfPoint(std::int32_t tenths, std::string face);
  friend bool operator==(const CFont&, const CFont&) = default;
};

enum class RasterOp {
  CopyPen,    ///< paint the colour
  NotXorPen,  ///< invert against it: white leaves a pixel as it is
  Darken      ///< tint, in a window: dark pixels stay dark; elsewhere as `CopyPen`
};

enum class BkMode { Opaque, Transparent };

enum class MapMode {
  Text,      ///< a logical unit is a pixel
  Isotropic  ///< a uniform scale from window extent to viewport extent
};

enum class DeviceCap { HorzSize, VertSize, HorzRes, VertRes, LogPixelsX, LogPixelsY };

/// How `CDC::DrawText` sets a text; combined with |.
enum DrawTextFlags : unsigned {
  DT_LEFT = 0x0,
  DT_CENTER = 0x1,
  DT_WORDBREAK = 0x10,
  DT_CALCRECT = 0x400
};

struct TextMetrics {
  std::int32_t height = 0;  ///< from line to line, logical units
  std::int32_t ascent = 0;  ///< from the top of a line to its baseline, logical units
};

/// A small picture of one bit a pixel; bit 7 of a row's byte is its leftmost pixel.
struct BitMask {
  static constexpr int kMaxRows = 8;
  int width = 0;
  int height = 0;
  std::array<std::uint8_t, kMaxRows> rows{};
  friend bool operator==(const BitMask&, const BitMask&) = default;
  constexpr bool IsSet(int x, int y) const {
    return (rows[static_cast<std::size_t>(y)] & (0x80U >> x)) != 0;
  }
};

}  // namespace morvane
