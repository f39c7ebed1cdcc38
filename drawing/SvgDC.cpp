#include "drawing/SvgDC.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "drawing/Decimal.h"
#include "drawing/XmlText.h"

namespace morvane {

namespace {

/// Marks around a text that runs from right to left; without them some viewers show nothing of it.
constexpr std::string_view kTurned = "\u202B";
constexpr std::string_view kTurnedEnd = "\u202C";

std::string Number(std::int64_t v) { return std::to_string(v); }

/// A line one pixel wide runs through the middle of its pixels.
std::string Half(std::int64_t v) { return std::to_string(v) + ".5"; }

std::string Hundredths(double v) {
  std::string text = Decimal(v, 2);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

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

}  // namespace

SvgDC::SvgDC(CDC& reference, SIZE size, PictureInfo info)
    : VectorDC(reference, size), info(std::move(info)) {}

/// The title, the author and the program, as readers of pictures look for them.
std::string SvgDC::Metadata() const {
  std::string text;
  if (!info.title.empty()) text += "<title>" + XmlEscape(info.title) + "</title>\n";
  text +=
      "<metadata>\n<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
      "<rdf:Description rdf:about=\"\">\n";
  if (!info.title.empty()) text += "<dc:title>" + XmlEscape(info.title) + "</dc:title>\n";
  if (!info.author.empty()) text += "<dc:creator>" + XmlEscape(info.author) + "</dc:creator>\n";
  text += std::string("<xmp:CreatorTool>") + PictureInfo::kCreator + "</xmp:CreatorTool>\n";
  return text + "</rdf:Description>\n</rdf:RDF>\n</metadata>\n";
}

void SvgDC::BeginObject(std::int32_t id) {
  FlushPath();
  body += "<g";
  // Of two objects with one id, which a chart may hold, the second one goes without.
  if (ids.insert(id).second) body += " id=\"object" + Number(id) + "\"";
  body += ">\n";
  const std::string name = info.nameOf ? info.nameOf(id) : std::string();
  if (!name.empty()) body += "<title>" + XmlEscape(name) + "</title>\n";
}

void SvgDC::EndObject() {
  FlushPath();
  body += "</g>\n";
}

std::string SvgDC::Close() {
  FlushPath();
  const std::string width = Number(size.cx);
  const std::string height = Number(size.cy);
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  text += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Hundredths(size.cx * info.scale) +
          "\" height=\"" + Hundredths(size.cy * info.scale) + "\" viewBox=\"0 0 " + width + " " +
          height + "\">\n";
  text += Metadata();
  if (!definitions.empty()) text += "<defs>\n" + definitions + "</defs>\n";
  if (!info.transparent) {
    text += "<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"#ffffff\"/>\n";
  }
  text += body + "</svg>\n";
  body.clear();
  definitions.clear();
  return text;
}

std::string SvgDC::PixelCentre(POINT p) const {
  const POINT placed = p + GetViewportOrg();
  return CentreOf(placed.x) + "," + CentreOf(placed.y);
}

std::string SvgDC::OutlineAttributes(const RECT& r) const {
  const Box box = OutlineBox(r);
  return "x=\"" + Hundredths(box.left) + "\" y=\"" + Hundredths(box.top) + "\" width=\"" +
         Hundredths(box.width) + "\" height=\"" + Hundredths(box.height) + "\"";
}

std::string SvgDC::StrokeAttributes() const {
  const CPen& pen = GetPen();
  if (pen.style == PenStyle::Null) return " stroke=\"none\"";
  std::string text = " stroke=\"" + ColourText(pen.colour) + "\"";
  if (pen.width > 1) text += " stroke-width=\"" + Number(pen.width) + "\"";
  // A line begins in the middle of its first pixel, and its dashes half a pixel before.
  std::string dashes;
  for (const int length : Dashes()) dashes += (dashes.empty() ? "" : ",") + Number(length);
  if (!dashes.empty()) text += " stroke-dasharray=\"" + dashes + "\" stroke-dashoffset=\"0.5\"";
  return text;
}

/// Thick lines have round ends and corners.
std::string SvgDC::LineAttributes() const {
  return StrokeAttributes() +
         (IsPenThick() ? " stroke-linecap=\"round\" stroke-linejoin=\"round\"" : "");
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
  if (!goesOn || !Dashes().empty()) path += "M" + PixelCentre(points.front());
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
  body += "<rect " + OutlineAttributes(r) + PaintAttributes() + "/>\n";
}

void SvgDC::RoundRect(const RECT& r, SIZE cornerEllipse) {
  const Spot radii = CornerRadii(cornerEllipse);
  FlushPath();
  body += "<rect " + OutlineAttributes(r) + " rx=\"" + Hundredths(radii.x) + "\" ry=\"" +
          Hundredths(radii.y) + "\"" + PaintAttributes() + "/>\n";
}

void SvgDC::Ellipse(const RECT& r) {
  const Box box = OutlineBox(r);
  FlushPath();
  body += "<ellipse cx=\"" + Hundredths(box.left + box.width / 2) + "\" cy=\"" +
          Hundredths(box.top + box.height / 2) + "\" rx=\"" + Hundredths(box.width / 2) +
          "\" ry=\"" + Hundredths(box.height / 2) + "\"" + PaintAttributes() + "/>\n";
}

void SvgDC::Arc(const RECT& r, POINT start, POINT end) {
  const Curve curve = CurveOf(r, start, end);
  if (IsRectEmpty(r)) return;
  const auto point = [&curve](double angle) {
    const Spot spot = curve.At(angle);
    return Hundredths(spot.x) + "," + Hundredths(spot.y);
  };
  const bool large = curve.to - curve.from > std::numbers::pi;
  FlushPath();
  body += "<path d=\"M" + point(curve.from) + "A" + Hundredths(curve.radii.x) + "," +
          Hundredths(curve.radii.y) + " 0 " + (large ? "1" : "0") + " 0 " + point(curve.to) +
          "\" fill=\"none\"" + StrokeAttributes() +
          (IsPenThick() ? " stroke-linecap=\"square\"" : "") + "/>\n";
}

void SvgDC::FillRect(const RECT& r, const CBrush& with) {
  if (with.hollow || IsRectEmpty(r)) return;
  FlushPath();
  body += "<rect " + BoxAttributes(Placed(r)) + " fill=\"" + ColourText(with.colour) + "\"/>\n";
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
  bool cut = false;
  if (IsHidden(topLeft, extent, clip, cut)) return;

  const POINT place = topLeft + GetViewportOrg();
  const std::string clipped = cut ? ClipAttribute(Placed(*clip)) : std::string();
  // Other programs put the parts of a line that runs both ways in orders of their own.
  for (const TextRun& run : GetTextRuns(utf8)) {
    body += "<text x=\"" + Hundredths(place.x + run.left) + "\" y=\"" +
            Number(AddSat(place.y, GetTextMetrics().ascent)) + "\" font-family=\"" +
            XmlEscape(font.face) + ", DejaVu Sans, sans-serif\" font-size=\"" +
            Number(std::abs(std::int64_t{font.height})) + "\"";
    if (font.weight >= CFont::kBoldWeight) body += " font-weight=\"bold\"";
    body += " fill=\"" + ColourText(GetTextColor()) + "\" textLength=\"" + Hundredths(run.width) +
            "\" lengthAdjust=\"spacingAndGlyphs\" xml:space=\"preserve\"" + clipped + ">";
    // The attribute for the direction would make the right edge the beginning, for some viewers
    // only.
    const bool turned = run.direction == TextDirection::RightToLeft;
    if (turned) body += kTurned;
    body += XmlEscape(run.text);
    if (turned) body.append(run.MarkBehind()) += kTurnedEnd;
    body += "</text>\n";
  }
}

}  // namespace morvane
