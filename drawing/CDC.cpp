#include "drawing/CDC.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "drawing/LineDirections.h"
#include "drawing/Metafile.h"
#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"
#include "drawing/TextLayout.h"

namespace morvane {

namespace {

/// What shows of a line around its middle, whole letters.
std::string_view VisibleMiddle(std::string_view line, std::int64_t width) {
  const std::size_t most = TextLayout::MostBytes(width);
  if (line.size() <= most) return line;
  return LetterPrefix(WithoutLetters(line, (line.size() - most) / 2), most);
}

}  // namespace

CPen CDC::SelectPen(const CPen& newPen) { return std::exchange(pen, newPen); }
CBrush CDC::SelectBrush(const CBrush& newBrush) { return std::exchange(brush, newBrush); }
CFont CDC::SelectFont(const CFont& newFont) { return std::exchange(font, newFont); }
COLORREF CDC::SetTextColor(COLORREF colour) { return std::exchange(textColor, colour); }
BkMode CDC::SetBkMode(BkMode mode) { return std::exchange(bkMode, mode); }
RasterOp CDC::SetROP2(RasterOp op) { return std::exchange(rop, op); }
Mapping CDC::SetMapping(const Mapping& other) { return std::exchange(mapping, other); }

bool CDC::RectVisible(const RECT& r) const {
  const RECT clip = GetClipBox();
  return r.left < clip.right && r.right > clip.left && r.top < clip.bottom && r.bottom > clip.top;
}

POINT CDC::MoveTo(POINT p) { return std::exchange(current, p); }

void CDC::LineTo(POINT p) {
  const std::array<POINT, 2> line{current, p};
  Polyline(line);
  current = p;
}

std::vector<TextRun> CDC::GetTextRuns(std::string_view utf8) const {
  return {{utf8, DirectionOf(utf8), 0, static_cast<double>(GetTextExtent(utf8).cx)}};
}

void CDC::FrameRect(const RECT& r, const CBrush& with) {
  FillRect({r.left, r.top, r.right, AddSat(r.top, 1)}, with);
  FillRect({r.left, SubSat(r.bottom, 1), r.right, r.bottom}, with);
  FillRect({r.left, AddSat(r.top, 1), AddSat(r.left, 1), SubSat(r.bottom, 1)}, with);
  FillRect({SubSat(r.right, 1), AddSat(r.top, 1), r.right, SubSat(r.bottom, 1)}, with);
}

void CDC::DrawFocusRect(const RECT& r) {
  if (IsRectEmpty(r)) return;
  const RasterOp oldRop = SetROP2(RasterOp::NotXorPen);
  const CPen oldPen = SelectPen({PenStyle::Dot, 0, 0x000000});
  const POINT inner{SubSat(r.right, 1), SubSat(r.bottom, 1)};
  const std::array<POINT, 5> frame{TopLeft(r), POINT{inner.x, r.top}, inner, POINT{r.left, inner.y},
                                   TopLeft(r)};
  // Side by side, so that no pixel is inverted twice.
  for (std::size_t i = 0; i + 1 < frame.size(); ++i) {
    MoveTo(frame[i]);
    LineTo(frame[i + 1]);
  }
  SelectPen(oldPen);
  SetROP2(oldRop);
}

std::int32_t CDC::DrawText(std::string_view text, RECT& r, unsigned flags) {
  const TextMetrics metrics = GetTextMetrics();
  const std::int32_t lineHeight = std::max(metrics.height, 1);
  const bool measuring = (flags & DT_CALCRECT) != 0;
  if (!measuring && IsRectEmpty(r)) return 0;

  // No more lines than can be seen; a text that is only measured stops where no device ends.
  constexpr std::size_t maxMeasuredLines = 4096;
  const std::size_t visible =
      static_cast<std::size_t>(std::max<std::int64_t>(Height(r), 0) / lineHeight) + 1;
  const std::string utf8 = ToUtf8(text, kMaxPaintedBytes);
  const TextLayout layout([this](std::string_view piece) { return GetTextExtent(piece).cx; },
                          Width(r), (flags & DT_WORDBREAK) != 0);
  const std::vector<std::string_view> lines =
      layout.Break(utf8, measuring ? maxMeasuredLines : std::min(visible, maxMeasuredLines));
  const std::int32_t bottom =
      AddSat(r.top, Saturate(static_cast<std::int64_t>(lines.size()) * lineHeight));
  if (!measuring) {
    PaintLines(utf8, lines, r, flags);
  } else {
    std::int32_t widest = 0;
    for (const std::string_view line : lines) widest = std::max(widest, GetTextExtent(line).cx);
    r = {r.left, r.top, AddSat(r.left, widest), bottom};
  }
  return SubSat(bottom, r.top);
}

void CDC::PaintLines(std::string_view utf8, const std::vector<std::string_view>& lines,
                     const RECT& r, unsigned flags) {
  const std::int32_t lineHeight = std::max(GetTextMetrics().height, 1);
  const bool centred = (flags & DT_CENTER) != 0;
  const bool mayTurn = MayRunRightToLeft(utf8);
  LineDirections directions(utf8);
  std::int32_t y = r.top;
  for (const std::string_view whole : lines) {
    const std::string_view line = centred ? VisibleMiddle(whole, Width(r))
                                          : LetterPrefix(whole, TextLayout::MostBytes(Width(r)));
    const TextDirection direction = mayTurn ? directions.Of(whole) : TextDirection::LeftToRight;
    const std::string directed = mayTurn ? InDirection(line, direction) : std::string();
    const std::string_view shown = mayTurn ? directed : line;
    std::int32_t x = r.left;
    if (centred || direction == TextDirection::RightToLeft) {
      const std::int64_t room = Width(r) - GetTextExtent(shown).cx;
      x = Saturate(r.left + (centred ? room / 2 : room));
    }
    if (!shown.empty()) TextOut({x, y}, shown, &r);
    y = AddSat(y, lineHeight);
  }
}

void CDC::PlayMetaFile(const Metafile& metafile) {
  const CPen oldPen = pen;
  const CBrush oldBrush = brush;
  const CFont oldFont = font;
  const COLORREF oldColour = textColor;
  for (const Metafile::Record& record : metafile.records) {
    pen = record.pen;
    brush = record.brush;
    textColor = record.textColor;
    if (record.font >= 0) font = metafile.fonts[static_cast<std::size_t>(record.font)];
    switch (record.kind) {
      case Metafile::Kind::Polyline: Polyline(record.points); break;
      case Metafile::Kind::Polygon: Polygon(record.points); break;
      case Metafile::Kind::Rectangle: Rectangle(record.rect); break;
      case Metafile::Kind::RoundRect: RoundRect(record.rect, record.corner); break;
      case Metafile::Kind::Ellipse: Ellipse(record.rect); break;
      case Metafile::Kind::Arc: Arc(record.rect, record.points[0], record.points[1]); break;
      case Metafile::Kind::FillRect: FillRect(record.rect, record.brush); break;
      case Metafile::Kind::FillMask: FillMask(record.points[0], record.mask); break;
      case Metafile::Kind::TextOut:
        TextOut(record.points[0], record.text, record.clipped ? &record.rect : nullptr);
        break;
    }
  }
  pen = oldPen;
  brush = oldBrush;
  font = oldFont;
  textColor = oldColour;
}

}  // namespace morvane
