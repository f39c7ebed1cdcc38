#include "surface/RunMarks.h"

#include <utility>

#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

using Look = RunMarks::Look;

/// Device pixels in a window, logical units in a picture.
constexpr std::int32_t kWide = 4;
constexpr std::int32_t kNarrow = 2;
constexpr std::int32_t kStopRadius = 6;
constexpr std::int32_t kCorner = 14;

struct Colours {
  COLORREF line;
  COLORREF tint;
};

Colours ColoursOf(Look look) {
  switch (look) {
    case Look::Active: return {RGB(0, 140, 60), RGB(190, 242, 205)};
    case Look::Around: return {RGB(0, 140, 60), RGB(236, 252, 240)};
    case Look::Taken: return {RGB(0, 100, 215), RGB(255, 255, 255)};
    case Look::Unreached: return {RGB(214, 110, 0), RGB(255, 226, 190)};
    case Look::Stop: break;
  }
  return {RGB(200, 30, 40), RGB(255, 255, 255)};
}

CPen PenOf(Look look) {
  const COLORREF colour = ColoursOf(look).line;
  const std::int32_t width = look == Look::Around ? kNarrow : kWide;
  return {PenStyle::Solid, width, colour};
}

/// A run stops at a state's upper left corner, at a transition in the middle of its route.
POINT StopPlace(const Shape& shape) {
  const auto* transition = dynamic_cast<const Transition*>(&shape);
  if (transition == nullptr) return TopLeft(shape.GetBounds());
  const std::vector<POINT> points = transition->GetChain().Points();
  const std::size_t middle = points.size() / 2;
  if (points.size() < 2) return TopLeft(shape.GetBounds());
  return CentreOf({points[middle - 1].x, points[middle - 1].y, points[middle].x, points[middle].y});
}

void DrawStop(CDC& dc, POINT centre) {
  const CPen oldPen = dc.SelectPen({PenStyle::Solid, 0, RGB(255, 255, 255)});
  const CBrush oldBrush = dc.SelectBrush(CBrush::Solid(ColoursOf(Look::Stop).line));
  dc.Ellipse(InflateRect({centre.x, centre.y, centre.x + 1, centre.y + 1}, kStopRadius));
  dc.SelectBrush(oldBrush);
  dc.SelectPen(oldPen);
}

/// What is dark on the chart stays so.
void Fill(CDC& dc, const RECT& box, COLORREF tint) {
  const RasterOp oldOp = dc.SetROP2(RasterOp::Darken);
  dc.FillSolidRect(box, tint);
  dc.SetROP2(oldOp);
}

}  // namespace

void RunMarks::Set(std::vector<Mark> shown) {
  if (marks == shown) return;
  marks = std::move(shown);
  view.Invalidate();
}

void RunMarks::DrawOnScreen(CDC& dc) const {
  Draw(
      dc, [this](POINT model) { return view.ToClient(model); }, true);
}

void RunMarks::DrawOnPicture(CDC& dc) const {
  Draw(
      dc, [this](POINT model) { return view.ToLogical(model); }, false);
}

void RunMarks::Draw(CDC& dc, const Place& place, bool isFilled) const {
  for (const Mark& mark : marks) {
    const Shape* shape = view.GetModel().Find(mark.id);
    if (shape != nullptr) DrawMark(dc, *shape, mark.look, place, isFilled);
  }
}

void RunMarks::DrawMark(CDC& dc, const Shape& shape, Look look, const Place& place,
                        bool isFilled) const {
  if (look == Look::Stop) return DrawStop(dc, place(StopPlace(shape)));
  const CPen oldPen = dc.SelectPen(PenOf(look));
  const CBrush oldBrush = dc.SelectBrush(CBrush{0, true});
  if (const auto* transition = dynamic_cast<const Transition*>(&shape)) {
    std::vector<POINT> points = transition->GetChain().Points();
    for (POINT& point : points) point = place(point);
    dc.Polyline(points);
  } else {
    const POINT corner = place(TopLeft(shape.GetBounds()));
    const POINT end = place(BottomRight(shape.GetBounds()));
    const RECT box{corner.x, corner.y, end.x, end.y};
    if (dc.RectVisible(InflateRect(box, kWide))) {
      if (isFilled) Fill(dc, box, ColoursOf(look).tint);
      dc.RoundRect(InflateRect(box, kNarrow), {kCorner, kCorner});
    }
  }
  dc.SelectBrush(oldBrush);
  dc.SelectPen(oldPen);
}

}  // namespace morvane
