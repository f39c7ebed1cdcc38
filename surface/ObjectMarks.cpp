#include "surface/ObjectMarks.h"

#include <map>
#include <utility>

#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// The radius of a sign, device pixels at any zoom.
constexpr std::int32_t kRadius = 7;
constexpr COLORREF kErrorColour = 0x2020C8;
constexpr COLORREF kWarningColour = 0x0090E8;
constexpr COLORREF kWhite = 0xFFFFFF;

/// The upper right corner of a box; a transition has its sign where it begins.
POINT PlaceOf(const Shape& shape) {
  if (const auto* transition = dynamic_cast<const Transition*>(&shape)) {
    return transition->SourceEnd().anchor;
  }
  const RECT box = shape.GetBounds();
  return {box.right, box.top};
}

}  // namespace

void ObjectMarks::Set(std::vector<Mark> shown) {
  marks = std::move(shown);
  Follow();
}

void ObjectMarks::Follow() {
  if (marks.empty() && placed.empty()) return;
  Invalidate();
  placed.clear();
  std::map<std::int32_t, std::size_t> signs;
  for (const Mark& mark : marks) {
    const Shape* shape = view.GetModel().Find(mark.id);
    if (shape == nullptr) continue;
    const auto [sign, isNew] = signs.emplace(mark.id, placed.size());
    if (isNew) placed.push_back({PlaceOf(*shape), mark.isError, mark.text});
    if (isNew) continue;
    Placed& former = placed[sign->second];
    former.isError = former.isError || mark.isError;
    former.text += '\n' + mark.text;
  }
  Invalidate();
}

RECT ObjectMarks::SignOf(const Placed& mark) const {
  const POINT centre = view.ToClient(mark.centre);
  return {SubSat(centre.x, kRadius), SubSat(centre.y, kRadius), AddSat(centre.x, kRadius + 1),
          AddSat(centre.y, kRadius + 1)};
}

void ObjectMarks::Invalidate() const {
  for (const Placed& mark : placed) view.InvalidateRect(InflateRect(SignOf(mark), 1));
}

/// A disc with an exclamation mark.
void ObjectMarks::Draw(CDC& dc) const {
  const RECT window = view.GetClientRect();
  for (const Placed& mark : placed) {
    const RECT sign = SignOf(mark);
    if (IsRectEmpty(IntersectRect(sign, window))) continue;
    const COLORREF colour = mark.isError ? kErrorColour : kWarningColour;
    const CPen oldPen = dc.SelectPen({PenStyle::Solid, 0, kWhite});
    const CBrush oldBrush = dc.SelectBrush(CBrush::Solid(colour));
    dc.Ellipse(sign);
    const POINT centre = CentreOf(sign);
    dc.FillSolidRect({centre.x - 1, centre.y - 4, centre.x + 1, centre.y + 1}, kWhite);
    dc.FillSolidRect({centre.x - 1, centre.y + 2, centre.x + 1, centre.y + 4}, kWhite);
    dc.SelectBrush(oldBrush);
    dc.SelectPen(oldPen);
  }
}

std::string ObjectMarks::TextAt(POINT client) const {
  for (const Placed& mark : placed) {
    if (PtInRect(SignOf(mark), client)) return mark.text;
  }
  return {};
}

}  // namespace morvane
