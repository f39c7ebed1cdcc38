#include "drawing/VectorDC.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace morvane {

namespace {

constexpr double kHalf = 0.5;

}  // namespace

int VectorDC::GetDeviceCaps(DeviceCap cap) const { return reference.GetDeviceCaps(cap); }

RECT VectorDC::GetClipBox() const { return RECT{0, 0, size.cx, size.cy} - GetViewportOrg(); }

VectorDC::Spot VectorDC::Curve::At(double angle) const {
  return {centre.x + radii.x * std::cos(angle), centre.y - radii.y * std::sin(angle)};
}

VectorDC::Spot VectorDC::Placed(POINT p) const {
  const POINT placed = p + GetViewportOrg();
  return {placed.x + kHalf, placed.y + kHalf};
}

std::span<const int> VectorDC::Dashes() const {
  if (GetPen().width > 1) return {};
  return DashPatternOf(GetPen().style);
}

std::int64_t VectorDC::PenWidth() const { return HasPen() ? std::max(GetPen().width, 1) : 0; }

VectorDC::Box VectorDC::OutlineBox(const RECT& r) const {
  const RECT box = Placed(r);
  const auto pen = static_cast<double>(PenWidth());
  return {box.left + pen / 2, box.top + pen / 2,
          std::max(static_cast<double>(Width(box)) - pen, 0.0),
          std::max(static_cast<double>(Height(box)) - pen, 0.0)};
}

VectorDC::Spot VectorDC::CornerRadii(SIZE cornerEllipse) const {
  // The box's corners are those of the line's outer edge.
  const double inset = static_cast<double>(PenWidth()) / 2;
  return {std::max(cornerEllipse.cx / 2.0 - inset, 0.0),
          std::max(cornerEllipse.cy / 2.0 - inset, 0.0)};
}

VectorDC::Curve VectorDC::CurveOf(const RECT& logical, POINT start, POINT end) const {
  const RECT r = Placed(logical);
  start = start + GetViewportOrg();
  end = end + GetViewportOrg();
  const double rx = static_cast<double>(Width(r)) / 2;
  const double ry = static_cast<double>(Height(r)) / 2;
  if (rx <= 0 || ry <= 0) return {};
  const double cx = r.left + rx;
  const double cy = r.top + ry;
  const double from = std::atan2((cy - start.y) / ry, (start.x - cx) / rx);
  double to = std::atan2((cy - end.y) / ry, (end.x - cx) / rx);
  if (to <= from) to += 2 * std::numbers::pi;
  // A thin curve meets lines in the middle of a pixel; a thick one runs inside its box.
  const double shift = IsPenThick() ? 0 : kHalf;
  const double inset = IsPenThick() ? static_cast<double>(PenWidth()) / 2 : 0;
  return {
      {cx + shift, cy + shift}, {std::max(rx - inset, 0.0), std::max(ry - inset, 0.0)}, from, to};
}

void VectorDC::FillMask(POINT topLeft, const BitMask& mask) {
  for (int y = 0; y < mask.height; ++y) {
    for (int x = 0; x < mask.width; ++x) {
      const POINT p = topLeft + POINT{x, y};
      if (mask.IsSet(x, y)) FillRect({p.x, p.y, AddSat(p.x, 1), AddSat(p.y, 1)}, GetBrush());
    }
  }
}

bool VectorDC::IsHidden(POINT topLeft, SIZE extent, const RECT* clip, bool& cut) const {
  const RECT box{topLeft.x, topLeft.y, AddSat(topLeft.x, extent.cx), AddSat(topLeft.y, extent.cy)};
  cut = clip != nullptr && IntersectRect(*clip, box) != box;
  return cut && IsRectEmpty(IntersectRect(*clip, box));
}

SIZE VectorDC::GetTextExtent(std::string_view utf8) const {
  reference.SelectFont(GetFont());
  return reference.GetTextExtent(utf8);
}

std::vector<TextRun> VectorDC::GetTextRuns(std::string_view utf8) const {
  reference.SelectFont(GetFont());
  return reference.GetTextRuns(utf8);
}

TextMetrics VectorDC::GetTextMetrics() const {
  reference.SelectFont(GetFont());
  return reference.GetTextMetrics();
}

}  // namespace morvane
