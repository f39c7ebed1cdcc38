#include "review/InkDC.h"

namespace morvane {

namespace {

/// What is darker is a part of the drawing, as the disc of an initial state, and no background.
bool IsDark(COLORREF colour) {
  constexpr unsigned middle = 0x60;
  return GetRValue(colour) < middle && GetGValue(colour) < middle && GetBValue(colour) < middle;
}

}  // namespace

InkDC::InkDC(CDC& target)
    : target(target),
      formerPen(target.GetPen()),
      formerBrush(target.GetBrush()),
      formerFont(target.GetFont()),
      formerColour(target.GetTextColor()),
      formerMapping(target.GetMapping()) {
  SelectPen(formerPen);
  SelectBrush(formerBrush);
  SelectFont(formerFont);
  SetTextColor(formerColour);
  SetMapping(formerMapping);
}

InkDC::~InkDC() {
  target.SelectPen(formerPen);
  target.SelectBrush(formerBrush);
  target.SelectFont(formerFont);
  target.SetTextColor(formerColour);
  target.SetMapping(formerMapping);
}

CPen InkDC::Inked(CPen own) const {
  if (own.style == PenStyle::Null) return own;
  return {ink.style.value_or(own.style), ink.width, ink.colour};
}

CBrush InkDC::Inked(const CBrush& own) const {
  if (own.hollow || !ink.paper) return CBrush::Null();
  return CBrush::Solid(IsDark(own.colour) ? ink.colour : *ink.paper);
}

CDC& InkDC::Measuring() const {
  target.SetMapping(GetMapping());
  target.SelectFont(GetFont());
  return target;
}

CDC& InkDC::Prepared() {
  Measuring();
  target.SelectPen(Inked(GetPen()));
  target.SelectBrush(Inked(GetBrush()));
  target.SetTextColor(ink.colour);
  target.SetROP2(GetROP2());
  target.SetBkMode(BkMode::Transparent);
  return target;
}

RECT InkDC::GetClipBox() const { return Measuring().GetClipBox(); }

void InkDC::Polyline(std::span<const POINT> points) { Prepared().Polyline(points); }
void InkDC::Polygon(std::span<const POINT> points) { Prepared().Polygon(points); }
void InkDC::Rectangle(const RECT& r) { Prepared().Rectangle(r); }
void InkDC::RoundRect(const RECT& r, SIZE cornerEllipse) { Prepared().RoundRect(r, cornerEllipse); }
void InkDC::Ellipse(const RECT& r) { Prepared().Ellipse(r); }

void InkDC::Arc(const RECT& r, POINT start, POINT end) { Prepared().Arc(r, start, end); }

void InkDC::FillRect(const RECT& r, const CBrush& with) { Prepared().FillRect(r, Inked(with)); }

void InkDC::FillMask(POINT topLeft, const BitMask& mask) { Prepared().FillMask(topLeft, mask); }

void InkDC::TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) {
  if (ink.hasText) Prepared().TextOut(topLeft, utf8, clip);
}

SIZE InkDC::GetTextExtent(std::string_view utf8) const { return Measuring().GetTextExtent(utf8); }

TextMetrics InkDC::GetTextMetrics() const { return Measuring().GetTextMetrics(); }

}  // namespace morvane
