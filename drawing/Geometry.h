#pragma once

#include <cstdint>
#include <limits>

namespace morvane {

// Plain value types for points, sizes, rectangles and colours. They carry no unit: each operation
// that takes one says whether it means model units, logical units or device pixels. All arithmetic
// saturates at the limits of 32 bits, so that no number in a file can lead to undefined behaviour.

struct POINT {
  std::int32_t x = 0;
  std::int32_t y = 0;
  friend bool operator==(const POINT&, const POINT&) = default;
};

struct SIZE {
  std::int32_t cx = 0;
  std::int32_t cy = 0;
  friend bool operator==(const SIZE&, const SIZE&) = default;
};

/// A rectangle whose right and bottom edges lie outside.
struct RECT {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  friend bool operator==(const RECT&, const RECT&) = default;
};

/// A colour with blue in the highest of its three bytes: 0x00BBGGRR.
using COLORREF = std::uint32_t;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
  return red | (green << 8) | (blue << 16);
}
constexpr unsigned GetRValue(COLORREF c) { return c & 0xFF; }
constexpr unsigned GetGValue(COLORREF c) { return (c >> 8) & 0xFF; }
constexpr unsigned GetBValue(COLORREF c) { return (c >> 16) & 0xFF; }

/// The nearest 32-bit value.
constexpr std::int32_t Saturate(std::int64_t v) {
  constexpr std::int64_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t high = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(v < low ? low : v > high ? high : v);
}
constexpr std::int32_t AddSat(std::int32_t a, std::int32_t b) {
  return Saturate(std::int64_t{a} + b);
}
constexpr std::int32_t SubSat(std::int32_t a, std::int32_t b) {
  return Saturate(std::int64_t{a} - b);
}
constexpr std::int32_t MulSat(std::int32_t a, std::int32_t b) {
  return Saturate(std::int64_t{a} * b);
}
/// (a + b) / 2, truncated toward zero.
constexpr std::int32_t Middle(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>((std::int64_t{a} + b) / 2);
}

constexpr POINT operator+(POINT a, POINT b) { return {AddSat(a.x, b.x), AddSat(a.y, b.y)}; }
constexpr POINT operator-(POINT a, POINT b) { return {SubSat(a.x, b.x), SubSat(a.y, b.y)}; }

constexpr RECT operator+(const RECT& r, POINT d) {
  return {AddSat(r.left, d.x), AddSat(r.top, d.y), AddSat(r.right, d.x), AddSat(r.bottom, d.y)};
}
constexpr RECT operator-(const RECT& r, POINT d) {
  return {SubSat(r.left, d.x), SubSat(r.top, d.y), SubSat(r.right, d.x), SubSat(r.bottom, d.y)};
}

/// Width and height, which of the widest rectangles do not fit 32 bits.
constexpr std::int64_t Width(const RECT& r) { return std::int64_t{r.right} - r.left; }
constexpr std::int64_t Height(const RECT& r) { return std::int64_t{r.bottom} - r.top; }

constexpr POINT TopLeft(const RECT& r) { return {r.left, r.top}; }
constexpr POINT BottomRight(const RECT& r) { return {r.right, r.bottom}; }

/// The centre, each half truncated toward zero.
constexpr POINT CentreOf(const RECT& r) {
  return {Middle(r.left, r.right), Middle(r.top, r.bottom)};
}

/// The zero-size rectangle at a point.
constexpr RECT RectAt(POINT p) { return {p.x, p.y, p.x, p.y}; }

/// True when the point lies in the rectangle; the right and bottom edges are outside.
constexpr bool PtInRect(const RECT& r, POINT p) {
  return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

constexpr bool IsRectEmpty(const RECT& r) { return r.right <= r.left || r.bottom <= r.top; }

/// The rectangle grown by dx and dy on every side; a negative amount shrinks it.
constexpr RECT InflateRect(const RECT& r, std::int32_t dx, std::int32_t dy) {
  return {SubSat(r.left, dx), SubSat(r.top, dy), AddSat(r.right, dx), AddSat(r.bottom, dy)};
}
constexpr RECT InflateRect(const RECT& r, std::int32_t d) { return InflateRect(r, d, d); }

/// The same rectangle with left not above right and top not above bottom.
constexpr RECT NormalizeRect(const RECT& r) {
  return {r.left < r.right ? r.left : r.right, r.top < r.bottom ? r.top : r.bottom,
          r.left < r.right ? r.right : r.left, r.top < r.bottom ? r.bottom : r.top};
}

/// The part that both rectangles cover; all zeros when there is none.
constexpr RECT IntersectRect(const RECT& a, const RECT& b) {
  const RECT r{a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
               a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
  return IsRectEmpty(r) ? RECT{} : r;
}

/// The box around both; an empty rectangle adds nothing.
constexpr RECT UnionRect(const RECT& a, const RECT& b) {
  if (IsRectEmpty(a)) return b;
  if (IsRectEmpty(b)) return a;
  return {a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
          a.right > b.right ? a.right : b.right, a.bottom > b.bottom ? a.bottom : b.bottom};
}

}  // namespace morvane
