#include "drawing/PdfDC.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "drawing/PdfText.h"

namespace morvane {

namespace {

constexpr double kDecimals = 1000;
/// How far the control points of a quarter of a circle are from its ends, in radii.
constexpr double kCircle = 0.5522847498307936;
constexpr double kQuarter = std::numbers::pi / 2;
/// A letter that would be off by less stays where the font's own widths put it, logical units.
constexpr double kUnseen = 0.04;
constexpr double kThousand = 1000;

}  // namespace

PdfDC::PdfDC(CDC& reference, SIZE size, PdfFonts& fonts) : VectorDC(reference, size), fonts(fonts) {
  // The page counts points upwards from its lower edge.
  for (const double v :
       {kPointsPerUnit, 0.0, 0.0, -kPointsPerUnit, 0.0, size.cy * kPointsPerUnit}) {
    Number(v);
  }
  Operator("cm");
}

std::string PdfDC::Close() {
  FlushLines();
  return std::move(content);
}

/// At most three decimals; nearly all are whole or end in a half.
void PdfDC::Number(double v) {
  auto scaled = static_cast<std::int64_t>(std::llround(v * kDecimals));
  if (scaled < 0) content += '-';
  scaled = std::abs(scaled);
  constexpr auto unit = static_cast<std::int64_t>(kDecimals);
  std::array<char, 24> digits{};
  const auto whole = std::to_chars(digits.data(), digits.data() + digits.size(), scaled / unit);
  content.append(digits.data(), whole.ptr);
  std::int64_t rest = scaled % unit;
  if (rest != 0) content += '.';
  constexpr std::int64_t ten = 10;
  for (; rest != 0; rest = rest * ten % unit) {
    content += static_cast<char>('0' + rest * ten / unit);
  }
  content += ' ';
}

void PdfDC::Operator(std::string_view name) { content.append(name) += '\n'; }

void PdfDC::Point(Spot p, std::string_view name) {
  Number(p.x);
  Number(p.y);
  Operator(name);
}

void PdfDC::CurveTo(Spot a, Spot b, Spot end) {
  for (const Spot p : {a, b}) {
    Number(p.x);
    Number(p.y);
  }
  Point(end, "c");
}

void PdfDC::BoxPath(const Box& box) {
  for (const double v : {box.left, box.top, box.width, box.height}) Number(v);
  Operator("re");
}

/// Goes on from the point at `from` to that at `to`, no more than a quarter of a turn.
void PdfDC::Quarter(Spot centre, Spot radii, double from, double to) {
  const Curve curve{centre, radii, from, to};
  const double reach = 4.0 / 3 * std::tan((to - from) / 4);
  const Spot start = curve.At(from);
  const Spot end = curve.At(to);
  const Spot out{start.x - reach * radii.x * std::sin(from),
                 start.y - reach * radii.y * std::cos(from)};
  const Spot in{end.x + reach * radii.x * std::sin(to), end.y + reach * radii.y * std::cos(to)};
  CurveTo(out, in, end);
}

void PdfDC::SetColour(COLORREF colour, std::string_view name) {
  constexpr double full = 255;
  const std::array<unsigned, 3> parts{GetRValue(colour), GetGValue(colour), GetBValue(colour)};
  for (const unsigned part : parts) Number(part / full);
  Operator(name);
}

void PdfDC::SetFill(COLORREF colour) {
  if (state.fill == colour) return;
  state.fill = colour;
  SetColour(colour, "rg");
}

void PdfDC::SetStroke(Cap cap, Join join) {
  const CPen& pen = GetPen();
  if (state.stroke != pen.colour) SetColour(pen.colour, "RG");
  state.stroke = pen.colour;
  const auto width = static_cast<double>(PenWidth());
  const auto set = [this](auto& known, auto wanted, std::string_view name) {
    if (known == wanted) return;
    known = wanted;
    Number(static_cast<double>(wanted));
    Operator(name);
  };
  set(state.width, width, "w");
  set(state.cap, cap, "J");
  set(state.join, join, "j");
  const PenStyle style = Dashes().empty() ? PenStyle::Solid : pen.style;
  if (state.style == style) return;
  state.style = style;
  content += '[';
  for (const int length : Dashes()) Number(length);
  content += ']';
  // A line begins in the middle of its first pixel, and its dashes half a pixel before.
  Operator(style == PenStyle::Solid ? "0 d" : " 0.5 d");
}

/// Fills and strokes the path that the content ends with.
void PdfDC::PaintShape() {
  if (HasPen()) return Operator(GetBrush().hollow ? "S" : "B");
  Operator(GetBrush().hollow ? "n" : "f");
}

void PdfDC::FlushLines() {
  if (hasLines) Operator("S");
  hasLines = false;
}

void PdfDC::Polyline(std::span<const POINT> points) {
  if (points.size() < 2 || !HasPen()) return;
  const bool goesOn = hasLines && linePen == GetPen() && lineEnd == points.front();
  if (!goesOn) {
    FlushLines();
    SetStroke(IsPenThick() ? Cap::Round : Cap::Butt, IsPenThick() ? Join::Round : Join::Miter);
    hasLines = true;
    linePen = GetPen();
  }
  // Each call begins its dashes anew.
  if (!goesOn || !Dashes().empty()) Point(Placed(points.front()), "m");
  for (const POINT p : points.subspan(1)) Point(Placed(p), "l");
  lineEnd = points.back();
}

void PdfDC::Polygon(std::span<const POINT> points) {
  if (points.size() < 2 || (!HasPen() && GetBrush().hollow)) return;
  FlushLines();
  if (!GetBrush().hollow) SetFill(GetBrush().colour);
  if (HasPen()) {
    SetStroke(IsPenThick() ? Cap::Round : Cap::Butt, IsPenThick() ? Join::Round : Join::Miter);
  }
  Point(Placed(points.front()), "m");
  for (const POINT p : points.subspan(1)) Point(Placed(p), "l");
  Operator("h");
  PaintShape();
}

void PdfDC::Rectangle(const RECT& r) {
  if (IsRectEmpty(r) || (!HasPen() && GetBrush().hollow)) return;
  FlushLines();
  if (!GetBrush().hollow) SetFill(GetBrush().colour);
  if (HasPen()) SetStroke(Cap::Butt, Join::Miter);
  BoxPath(OutlineBox(r));
  PaintShape();
}

void PdfDC::RoundRect(const RECT& r, SIZE cornerEllipse) {
  if (IsRectEmpty(r) || (!HasPen() && GetBrush().hollow)) return;
  FlushLines();
  if (!GetBrush().hollow) SetFill(GetBrush().colour);
  if (HasPen()) SetStroke(Cap::Butt, Join::Miter);
  const Box box = OutlineBox(r);
  const Spot wanted = CornerRadii(cornerEllipse);
  const Spot radii{std::min(wanted.x, box.width / 2), std::min(wanted.y, box.height / 2)};
  const Spot inner{box.width - radii.x, box.height - radii.y};
  const auto at = [&box](double x, double y) { return Spot{box.left + x, box.top + y}; };
  const Spot held{radii.x * (1 - kCircle), radii.y * (1 - kCircle)};
  Point(at(radii.x, 0), "m");
  Point(at(inner.x, 0), "l");
  CurveTo(at(box.width - held.x, 0), at(box.width, held.y), at(box.width, radii.y));
  Point(at(box.width, inner.y), "l");
  CurveTo(at(box.width, box.height - held.y), at(box.width - held.x, box.height),
          at(inner.x, box.height));
  Point(at(radii.x, box.height), "l");
  CurveTo(at(held.x, box.height), at(0, box.height - held.y), at(0, inner.y));
  Point(at(0, radii.y), "l");
  CurveTo(at(0, held.y), at(held.x, 0), at(radii.x, 0));
  Operator("h");
  PaintShape();
}

void PdfDC::Ellipse(const RECT& r) {
  if (IsRectEmpty(r) || (!HasPen() && GetBrush().hollow)) return;
  FlushLines();
  if (!GetBrush().hollow) SetFill(GetBrush().colour);
  if (HasPen()) SetStroke(Cap::Butt, Join::Miter);
  const Box box = OutlineBox(r);
  const Spot radii{box.width / 2, box.height / 2};
  const Spot centre{box.left + radii.x, box.top + radii.y};
  Point({centre.x + radii.x, centre.y}, "m");
  for (int i = 0; i < 4; ++i) Quarter(centre, radii, i * kQuarter, (i + 1) * kQuarter);
  Operator("h");
  PaintShape();
}

void PdfDC::Arc(const RECT& r, POINT start, POINT end) {
  if (IsRectEmpty(r) || !HasPen()) return;
  const Curve curve = CurveOf(r, start, end);
  FlushLines();
  SetStroke(IsPenThick() ? Cap::Square : Cap::Butt, Join::Miter);
  Point(curve.At(curve.from), "m");
  const int pieces = std::max(1, static_cast<int>(std::ceil((curve.to - curve.from) / kQuarter)));
  const double step = (curve.to - curve.from) / pieces;
  for (int i = 0; i < pieces; ++i) {
    Quarter(curve.centre, curve.radii, curve.from + i * step, curve.from + (i + 1) * step);
  }
  Operator("S");
}

void PdfDC::FillRect(const RECT& r, const CBrush& with) {
  if (with.hollow || IsRectEmpty(r)) return;
  FlushLines();
  SetFill(with.colour);
  const RECT box = Placed(r);
  BoxPath({static_cast<double>(box.left), static_cast<double>(box.top),
           static_cast<double>(Width(box)), static_cast<double>(Height(box))});
  Operator("f");
}

void PdfDC::TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) {
  bool cut = false;
  if (utf8.empty() || IsHidden(topLeft, GetTextExtent(utf8), clip, cut)) return;
  const PdfFonts::Line& line = fonts.Shape(GetFont(), utf8);
  FlushLines();
  SetFill(GetTextColor());
  const State outside = state;
  if (cut) {
    const RECT box = Placed(*clip);
    Operator("q");
    BoxPath({static_cast<double>(box.left), static_cast<double>(box.top),
             static_cast<double>(Width(box)), static_cast<double>(Height(box))});
    Operator("W n");
  }
  if (line.needsText) content.append("/Span <</ActualText ").append(PdfText(utf8)) += ">> BDC\n";
  const POINT place = topLeft + GetViewportOrg();
  const Spot baseline{static_cast<double>(place.x),
                      static_cast<double>(place.y) + GetTextMetrics().ascent};
  Operator("BT");
  for (const PdfFonts::Run& run : line.runs) WriteRun(run, baseline);
  Operator("ET");
  if (line.needsText) Operator("EMC");
  if (!cut) return;
  Operator("Q");
  state = outside;
}

/// Letters get a line around them, half of which lies outside.
void PdfDC::ThickenLetters(double extra) {
  if (state.stroke != GetTextColor()) SetColour(GetTextColor(), "RG");
  state.stroke = GetTextColor();
  state.width = extra;
  Number(extra);
  Operator("w\n2 Tr");
}

/// Letters follow each other by the font's own widths; where that would show they are moved.
void PdfDC::WriteRun(const PdfFonts::Run& run, Spot baseline) {
  if (run.glyphs.empty()) return;
  content.append("/").append(NameOfFace(run.face)) += ' ';
  Number(run.size);
  Operator("Tf");
  if (run.extra > 0) ThickenLetters(run.extra);
  const double perThousand = run.size / kThousand;
  double x = 0;
  double y = 0;
  bool open = false;
  for (const PdfFonts::Glyph& glyph : run.glyphs) {
    const double off = glyph.x - x;
    if (!open || glyph.y != y) {
      if (open) Operator(">] TJ");
      x = glyph.x;
      y = glyph.y;
      content += "1 0 0 -1 ";
      // A thicker stroke grows to the right and upwards, as in the window.
      Point({baseline.x + x + run.extra, baseline.y + y - run.extra}, "Tm");
      content += "[<";
      open = true;
    } else if (std::abs(off) > kUnseen) {
      content += '>';
      const double moved = std::round(-off / perThousand);
      Number(moved);
      content.back() = '<';
      x -= moved * perThousand;
    }
    AppendHex(content, glyph.id);
    x += fonts.AdvanceOf(run.face, glyph.id) * perThousand;
  }
  Operator(">] TJ");
  if (run.extra > 0) Operator("0 Tr");
}

}  // namespace morvane
