#include "drawing/SvgDC.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "drawing/Decimal.h"
#include "drawing/TextDirection.h"
#include "drawing/XmlText.h"

namespace morvane {

namespace {

/// Marks around a part of a text that runs from right to left.
const std::string kTurned = "\u202B";
const std::string kTurnedEnd = "\u202C";

std::string Number(std::int64_t v) { return std::to_string(v); }

/// A line one pixel wide runs through the middle of its pixels.
std::string Half(std::int64_t v) { return std::to_string(v) + ".5"; }

std::string Hundredths(double v) { return Decimal(v, 2); }

/// Negative whole numbers need care: half a pixel right of -3 is -2.5.
std::string CentreOf(std::int32_t v) {
  if (v >= 0) return Half(v);
  if (v == -1) return "-0.5";
  return "-" + Half(-(std::int64_t{v} + 1));
}

std::string ColourText(COLORREF c) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", GetRValue(c), GetGValue(c),
                GetBValue(c));
  return text.data();
}

std::string BoxAttributes(const RECT& r) {
  return "x=\"" + Number(r.left) + "\" y=\"" + Number(r.top) + "\" width=\"" + Number(Width(r)) +
         "\" height=\"" + Number(Height(r)) + "\"";
}

/// The dashes of a pen; empty if it draws without gaps.
std::string DashesOf(const CPen& pen) {
  std::string lengths;
  if (pen.width > 1) return lengths;
  for (const int length : DashPatternOf(pen.style)) {
    lengths += (lengths.empty() ? "" : ",") + Number(length);
  }
  return lengths;
}

}  // namespace

SvgDC::SvgDC(CDC& reference, SIZE size) : reference(reference), size(size) {}

std::string SvgDC::Close() {
  FlushPath();
  const std::string width = Number(size.cx);
  const std::string height = Number(size.cy);
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  text += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
          "\" viewBox=\"0 0 " + width + " " + height + "\">\n";
  if (!definitions.empty()) text += "<defs>\n" + definitions + "</defs>\n";
  text += "<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"#ffffff\"/>\n";
  text += body + "</svg>\n";
  body.clear();
  definitions.clear();
  return text;
}

int SvgDC::GetDeviceCaps(DeviceCap cap) const { return reference.GetDeviceCaps(cap); }

RECT SvgDC::GetClipBox() const { return RECT{0, 0, size.cx, size.cy} - GetViewportOrg(); }

std::int64_t SvgDC::PenWidth() const {
  return GetPen().style == PenStyle::Null ? 0 : std::max(GetPen().width, 1);
}

std::string SvgDC::PixelCentre(POINT p) const {
  const POINT placed = p + GetViewportOrg();
  return CentreOf(placed.x) + "," + CentreOf(placed.y);
}

/// The outline of a shape runs inside its box: its line's middle is half a pen in.
std::string SvgDC::OutlineBox(const RECT& r) const {
  const RECT box = Placed(r);
  if (GetPen().style == PenStyle::Null) return BoxAttributes(box);
  const std::int64_t pen = PenWidth();
  if (pen > 1) {
    const double half = static_cast<double>(pen) / 2;
    return "x=\"" + Hundredths(box.left + half) + "\" y=\"" + Hundredths(box.top + half) +
           "\" width=\"" + Number(std::max<std::int64_t>(Width(box) - pen, 0)) + "\" height=\"" +
           Number(std::max<std::int64_t>(Height(box) - pen, 0)) + "\"";
  }
  return "x=\"" + CentreOf(box.left) + "\" y=\"" + CentreOf(box.top) + "\" width=\"" +
         Number(std::max<std::int64_t>(Width(box) - 1, 0)) + "\" height=\"" +
         Number(std::max<std::int64_t>(Height(box) - 1, 0)) + "\"";
}

std::string SvgDC::StrokeAttributes() const {
  const CPen& pen = GetPen();
  if (pen.style == PenStyle::Null) return " stroke=\"none\"";
  std::string text = " stroke=\"" + ColourText(pen.colour) + "\"";
  if (pen.width > 1) text += " stroke-width=\"" + Number(pen.width) + "\"";
  // A line begins in the middle of its first pixel, and its dashes half a pixel before.
  const std::string dashes = DashesOf(pen);
  if (!dashes.empty()) text += " stroke-dasharray=\"" + dashes + "\" stroke-dashoffset=\"0.5\"";
  return text;
}

/// Thick lines have round ends and corners.
std::string SvgDC::LineAttributes() const {
  const bool thick = GetPen().style != PenStyle::Null && GetPen().width > 1;
  return StrokeAttributes() + (thick ? " stroke-linecap=\"round\" stroke-linejoin=\"round\"" : "");
}

std::string SvgDC::FillAttribute() const {
  const CBrush& brush = GetBrush();
  return " fill=\"" + (brush.hollow ? std::string("none") : ColourText(brush.colour)) + "\"";
}

std::string SvgDC::PaintAttributes() const { return FillAttribute() + StrokeAttributes(); }

void SvgDC::FlushPath() {
  if (path.empty()) return;
  body += "<path d=\"" + path + "\" fill=\"none\"";
  const CPen pen = SelectPen(pathPen);
  body += LineAttributes() + "/>\n";
  SelectPen(pen);
  path.clear();
}

void SvgDC::Polyline(std::span<const POINT> points) {
  if (points.size() < 2) return;
  const bool goesOn = !path.empty() && pathPen == GetPen() && pathEnd == points.front();
  if (!goesOn) {
    FlushPath();
    pathPen = GetPen();
  }
  // Each call begins its dashes anew.
  if (!goesOn || !DashesOf(GetPen()).empty()) path += "M" + PixelCentre(points.front());
  for (const POINT p : points.subspan(1)) path += "L" + PixelCentre(p);
  pathEnd = points.back();
}

void SvgDC::Polygon(std::span<const POINT> points) {
  FlushPath();
  body += "<polygon points=\"";
  for (std::size_t i = 0; i < points.size(); ++i) {
    body += (i == 0 ? "" : " ") + PixelCentre(points[i]);
  }
  body += "\"" + FillAttribute() + LineAttributes() + "/>\n";
}

void SvgDC::Rectangle(const RECT& r) {
  FlushPath();
  body += "<rect " + OutlineBox(r) + PaintAttributes() + "/>\n";
}

void SvgDC::RoundRect(const RECT& r, SIZE cornerEllipse) {
  // The box's corners are those of a thick outline's outer edge.
  const double inset = PenWidth() > 1 ? static_cast<double>(PenWidth()) / 2 : 0;
  const auto radius = [inset](std::int32_t axis) {
    return Hundredths(std::max(axis / 2.0 - inset, 0.0));
  };
  FlushPath();
  body += "<rect " + OutlineBox(r) + " rx=\"" + radius(cornerEllipse.cx) + "\" ry=\"" +
          radius(cornerEllipse.cy) + "\"" + PaintAttributes() + "/>\n";
}

void SvgDC::Ellipse(const RECT& logical) {
  const RECT r = Placed(logical);
  const std::int64_t pen = PenWidth();
  FlushPath();
  body += "<ellipse cx=\"" + Hundredths((static_cast<double>(r.left) + r.right) / 2) + "\" cy=\"" +
          Hundredths((static_cast<double>(r.top) + r.bottom) / 2) + "\" rx=\"" +
          Hundredths(static_cast<double>(std::max<std::int64_t>(Width(r) - pen, 0)) / 2) +
          "\" ry=\"" +
          Hundredths(static_cast<double>(std::max<std::int64_t>(Height(r) - pen, 0)) / 2) + "\"" +
          PaintAttributes() + "/>\n";
}

void SvgDC::Arc(const RECT& logical, POINT start, POINT end) {
  const RECT r = Placed(logical);
  start = start + GetViewportOrg();
  end = end + GetViewportOrg();
  const double rx = static_cast<double>(Width(r)) / 2;
  const double ry = static_cast<double>(Height(r)) / 2;
  if (rx <= 0 || ry <= 0) return;
  const double cx = r.left + rx;
  const double cy = r.top + ry;
  // Angles grow counter-clockwise, as seen on the screen, where y points down.
  const double from = std::atan2((cy - start.y) / ry, (start.x - cx) / rx);
  double to = std::atan2((cy - end.y) / ry, (end.x - cx) / rx);
  constexpr double fullTurn = 6.283185307179586;
  if (to <= from) to += fullTurn;
  const bool large = to - from > fullTurn / 2;
  // A thin curve meets lines in the middle of a pixel; a thick one runs inside its box.
  const bool thick = PenWidth() > 1;
  const double shift = thick ? 0 : 0.5;
  const double inset = thick ? static_cast<double>(PenWidth()) / 2 : 0;
  const double ringX = std::max(rx - inset, 0.0);
  const double ringY = std::max(ry - inset, 0.0);
  const auto point = [&](double angle) {
    return Hundredths(cx + ringX * std::cos(angle) + shift) + "," +
           Hundredths(cy - ringY * std::sin(angle) + shift);
  };
  FlushPath();
  body += "<path d=\"M" + point(from) + "A" + Hundredths(ringX) + "," + Hundredths(ringY) + " 0 " +
          (large ? "1" : "0") + " 0 " + point(to) + "\" fill=\"none\"" + StrokeAttributes() +
          (thick ? " stroke-linecap=\"square\"" : "") + "/>\n";
}

void SvgDC::FillRect(const RECT& r, const CBrush& with) {
  if (with.hollow || IsRectEmpty(r)) return;
  FlushPath();
  body += "<rect " + BoxAttributes(Placed(r)) + " fill=\"" + ColourText(with.colour) + "\"/>\n";
}

void SvgDC::FillMask(POINT topLeft, const BitMask& mask) {
  for (int y = 0; y < mask.height; ++y) {
    for (int x = 0; x < mask.width; ++x) {
      const POINT p = topLeft + POINT{x, y};
      if (mask.IsSet(x, y)) FillRect({p.x, p.y, AddSat(p.x, 1), AddSat(p.y, 1)}, GetBrush());
    }
  }
}

std::string SvgDC::ClipAttribute(const RECT& clip) {
  if (clipCount == 0 || clip != lastClip) {
    lastClip = clip;
    ++clipCount;
    definitions += "<clipPath id=\"c" + Number(clipCount) + "\"><rect " + BoxAttributes(clip) +
                   "/></clipPath>\n";
  }
  return " clip-path=\"url(#c" + Number(clipCount) + ")\"";
}

void SvgDC::TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) {
  if (utf8.empty()) return;
  FlushPath();
  const CFont& font = GetFont();
  const SIZE extent = GetTextExtent(utf8);
  const RECT box{topLeft.x, topLeft.y, AddSat(topLeft.x, extent.cx), AddSat(topLeft.y, extent.cy)};
  const bool cut = clip != nullptr && IntersectRect(*clip, box) != box;
  if (cut && IsRectEmpty(IntersectRect(*clip, box))) return;

  const POINT place = topLeft + GetViewportOrg();
  body += "<text x=\"" + Number(place.x) + "\" y=\"" +
          Number(AddSat(place.y, GetTextMetrics().ascent)) + "\" font-family=\"" +
          XmlEscape(font.face) + ", DejaVu Sans, sans-serif\" font-size=\"" +
          Number(std::abs(std::int64_t{font.height})) + "\"";
  if (font.weight >= CFont::kBoldWeight) body += " font-weight=\"bold\"";
  body += " fill=\"" + ColourText(GetTextColor()) + "\" textLength=\"" + Number(extent.cx) +
          "\" lengthAdjust=\"spacingAndGlyphs\" xml:space=\"preserve\"";
  if (cut) body += ClipAttribute(Placed(*clip));
  // The attribute for the direction would make the right edge the beginning, for some viewers only.
  const bool turned = MayRunRightToLeft(utf8) && DirectionOf(utf8) == TextDirection::RightToLeft;
  const std::string letters = XmlEscape(utf8);
  body += ">" + (turned ? kTurned + letters + kTurnedEnd : letters) + "</text>\n";
}

SIZE SvgDC::GetTextExtent(std::string_view utf8) const {
  reference.SelectFont(GetFont());
  return reference.GetTextExtent(utf8);
}

TextMetrics SvgDC::GetTextMetrics() const {
  reference.SelectFont(GetFont());
  return reference.GetTextMetrics();
}

}  // namespace morvane
