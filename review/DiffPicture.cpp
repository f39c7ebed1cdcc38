#include "review/DiffPicture.h"

#include <algorithm>
#include <unordered_map>

#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "resources/Texts.h"
#include "review/ChartDiff.h"
#include "review/InkDC.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

// All in logical units.
constexpr std::int32_t kMargin = 6;
constexpr std::int32_t kBadgeRadius = 8;
constexpr std::int32_t kCellWidth = 190;
constexpr std::int32_t kCellHeight = 28;
constexpr std::int32_t kSampleWidth = 44;
constexpr std::int32_t kSampleHeight = 18;
constexpr std::int32_t kTextGap = 8;

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kLegendInk = RGB(64, 64, 64);

RECT Around(POINT centre, std::int32_t radius) {
  return {SubSat(centre.x, radius), SubSat(centre.y, radius), AddSat(centre.x, radius),
          AddSat(centre.y, radius)};
}

}  // namespace

const Ink& DiffPicture::InkOf(Role role) {
  static const Ink inks[] = {
      {.colour = RGB(120, 120, 120), .width = 0, .style = {}, .paper = RGB(250, 250, 250)},
      {.colour = RGB(12, 112, 50), .width = 2, .style = {}, .paper = RGB(226, 245, 232)},
      {.colour = RGB(190, 22, 34), .width = 0, .style = PenStyle::Dash, .paper = {}},
      {.colour = RGB(150, 88, 0), .width = 2, .style = {}, .paper = RGB(255, 243, 214)},
      {.colour = RGB(150, 88, 0), .width = 0, .style = {}, .paper = RGB(255, 249, 236)},
      {.colour = RGB(222, 120, 126),
       .width = 0,
       .style = PenStyle::Dot,
       .paper = {},
       .hasText = false},
  };
  return inks[static_cast<std::size_t>(role)];
}

std::span<const DiffPicture::Legend> DiffPicture::Legends() {
  static constexpr Legend legends[] = {
      {Role::Added, "+", "added"},        {Role::Removed, "-", "removed"},
      {Role::Changed, "~", "changed"},    {Role::Moved, ">", "moved or other look"},
      {Role::Former, "", "former place"}, {Role::Unchanged, "", "unchanged"},
  };
  return legends;
}

DiffPicture::Role DiffPicture::RoleOf(const ObjectChange& change) {
  if (change.kind == ObjectChange::Kind::Added) return Role::Added;
  if (change.kind == ObjectChange::Kind::Removed) return Role::Removed;
  return change.HasMeaning() ? Role::Changed : Role::Moved;
}

DiffPicture::Sign DiffPicture::SignOf(const ObjectChange& change) {
  const Role role = RoleOf(change);
  return {InkOf(role).colour, std::ranges::find(Legends(), role, &Legend::role)->sign};
}

DiffPicture::DiffPicture(const LayoutMgr& before, const LayoutMgr& after, const ChartDiff& diff)
    : before(before), after(after) {
  framed = true;
  AddItems(before, after, diff);
  AddSizes(before);
  AddSizes(after);
  const auto columns = std::max<std::int32_t>(charts.cx / kCellWidth, 2);
  const auto count = static_cast<std::int32_t>(UsedLegends().size());
  const std::int32_t rows = (count + columns - 1) / columns;
  size = {std::max(charts.cx, kCellWidth * std::min(columns, std::max(count, 1))),
          AddSat(charts.cy, kCellHeight * rows + 2 * kMargin)};
}

void DiffPicture::AddSizes(const LayoutMgr& chart) {
  POINT corner;
  chart.GetChartExtent(corner.x, corner.y);
  charts.cx = std::max(charts.cx, AddSat(chart.ToLogical(corner.x), kMargin));
  charts.cy = std::max(charts.cy, AddSat(chart.ToLogical(corner.y), kMargin));
}

/// The shape of a described object; null if the chart has none.
Shape* DiffPicture::Find(const LayoutMgr& chart, const DescribedObject* object) {
  if (object == nullptr) return nullptr;
  const auto& shapes = chart.GetModel().Objects();
  Shape* shape = object->position < shapes.size() ? shapes[object->position] : nullptr;
  const bool isIt =
      shape != nullptr && shape->GetId() == object->id && shape->GetTypeName() == object->keyword;
  return isIt ? shape : chart.GetModel().Find(object->id);
}

void DiffPicture::AddItems(const LayoutMgr& before, const LayoutMgr& after, const ChartDiff& diff) {
  std::unordered_map<const Shape*, Item> changed;
  for (const ObjectChange& change : diff.Objects()) {
    Shape* shape = Find(after, change.after);
    if (shape == nullptr) continue;
    const Role role = RoleOf(change);
    const bool signs = role != Role::Moved || change.HasLook();
    changed.emplace(shape, Item{shape, role, signs});
  }
  for (Shape* shape : after.GetModel().Objects()) {
    const auto found = changed.find(shape);
    items.push_back(found != changed.end() ? found->second : Item{shape, Role::Unchanged, false});
  }
  // What went lies open over what there is.
  for (const ObjectChange& change : diff.Objects()) {
    Shape* shape = Find(before, change.before);
    if (shape == nullptr) continue;
    const bool gone = change.kind == ObjectChange::Kind::Removed;
    const bool stoodElsewhere =
        !change.movesAlong && std::ranges::any_of(change.facts, [](const FactChange& fact) {
          return fact.after->aspect == Fact::Aspect::Place ||
                 fact.after->aspect == Fact::Aspect::Route;
        });
    if (gone || stoodElsewhere) items.push_back({shape, gone ? Role::Removed : Role::Former, gone});
  }
  std::ranges::stable_sort(items, {}, [](const Item& item) { return item.shape->GetLayer(); });
}

RECT DiffPicture::PlaceOf(const ObjectChange& change) const {
  const bool gone = change.after == nullptr;
  const Shape* shape = Find(gone ? before : after, &change.Object());
  return shape != nullptr ? after.ToLogical(shape->GetBounds()) : RECT{};
}

std::vector<const DiffPicture::Legend*> DiffPicture::UsedLegends() const {
  std::vector<const Legend*> used;
  for (const Legend& legend : Legends()) {
    if (std::ranges::find(items, legend.role, &Item::role) != items.end()) used.push_back(&legend);
  }
  return used;
}

void DiffPicture::Paint(CDC& dc) const {
  InkDC inked(dc);
  inked.SetBkMode(BkMode::Transparent);
  for (const Item& item : items) {
    if (!dc.RectVisible(after.ToLogical(InflateRect(item.shape->GetPaperBounds(), 1)))) continue;
    inked.SetInk(InkOf(item.role));
    item.shape->Draw(&inked);
  }
  for (const Item& item : items) {
    if (item.signs) PaintSign(dc, item);
  }
  PaintLegend(dc);
}

/// Off the upper right corner of a box, or on the middle of a route.
void DiffPicture::PaintSign(CDC& dc, const Item& item) const {
  const RECT box = item.shape->GetBounds();
  POINT centre =
      after.ToLogical(POINT{box.right, box.top}) + POINT{kBadgeRadius / 2, -kBadgeRadius / 2};
  if (const auto* transition = dynamic_cast<const Transition*>(item.shape)) {
    centre = after.ToLogical(transition->LabelPoint());
  } else if (item.shape->GetTypeName() == "Line") {
    centre = after.ToLogical(CentreOf(box));
  }
  centre.y = std::max(centre.y, kBadgeRadius);
  if (!dc.RectVisible(Around(centre, kBadgeRadius))) return;
  const auto legend = std::ranges::find(Legends(), item.role, &Legend::role);
  PaintBadge(dc, centre, {InkOf(item.role).colour, legend->sign}, after.GetBoldFont());
}

void DiffPicture::PaintBadge(CDC& dc, POINT centre, const Sign& sign, const CFont& font) {
  const CPen oldPen = dc.SelectPen({PenStyle::Solid, 0, kWhite});
  const CBrush oldBrush = dc.SelectBrush(CBrush::Solid(sign.colour));
  dc.Ellipse(Around(centre, kBadgeRadius));
  const COLORREF oldColour = dc.SetTextColor(kWhite);
  const CFont oldFont = dc.SelectFont(font);
  const SIZE room = dc.GetTextExtent(sign.letter);
  dc.TextOut({SubSat(centre.x, room.cx / 2), SubSat(centre.y, room.cy / 2)}, sign.letter, nullptr);
  dc.SelectFont(oldFont);
  dc.SetTextColor(oldColour);
  dc.SelectBrush(oldBrush);
  dc.SelectPen(oldPen);
}

/// Below the charts, from left to right.
void DiffPicture::PaintLegend(CDC& dc) const {
  const CFont oldFont = dc.SelectFont(after.GetBoldFont());
  CFont font = after.GetBoldFont();
  font.weight = CFont::kNormalWeight;
  const std::int32_t columns = size.cx / kCellWidth;
  std::int32_t count = 0;
  for (const Legend* legend : UsedLegends()) {
    const POINT corner{kMargin + count % columns * kCellWidth,
                       AddSat(charts.cy, kMargin + count / columns * kCellHeight)};
    ++count;
    const RECT sample{corner.x, corner.y, corner.x + kSampleWidth, AddSat(corner.y, kSampleHeight)};
    {
      InkDC inked(dc);
      inked.SetInk(InkOf(legend->role));
      inked.Rectangle(sample);
    }
    if (legend->sign[0] != '\0') {
      PaintBadge(dc, CentreOf(sample), {InkOf(legend->role).colour, legend->sign},
                 after.GetBoldFont());
    }
    dc.SelectFont(font);
    const COLORREF oldColour = dc.SetTextColor(kLegendInk);
    dc.TextOut({sample.right + kTextGap, sample.top}, Translate(legend->text), nullptr);
    dc.SetTextColor(oldColour);
  }
  dc.SelectFont(oldFont);
}

}  // namespace morvane
