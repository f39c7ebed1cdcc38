#include "connectors/Line.h"

#include <algorithm>

#include "connectors/LinePens.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Connectable.h"
#include "model/Defaults.h"
#include "model/DrawResources.h"
#include "model/Editors.h"
#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/ShapeGeometry.h"
#include "platform/Service.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int32_t kHandleReach = 3;
constexpr double kBandHalfWidth = 4.0;
/// The band and the handles in model units at the least zoom.
constexpr std::int32_t kBoundsMargin = 4 / ChartView::kMinZoom + 1;

RECT HandleAround(POINT lineEnd) { return InflateRect(RectAt(lineEnd), kHandleReach); }

}  // namespace

Line::Line() = default;

Line::Line(std::int32_t id, ChartView* view, POINT start, POINT end)
    : ComplexShape(id, view, LAYER_NOTE),
      start(start),
      end(end),
      colourIndex(Defaults::Instance().LineColor),
      styleIndex(Defaults::Instance().LineStyle) {}

Line::Line(std::int32_t id, ChartView* view, const AnchorOffer& from, const AnchorOffer& to)
    : Line(id, view, *from.shape->AnchorAt(from.key), *to.shape->AnchorAt(to.key)) {
  startShape = from.shape;
  startKey = from.key;
  startShape->AddConnector(this);
  endShape = to.shape;
  endKey = to.key;
  endShape->AddConnector(this);
}

Line::~Line() {
  if (startShape != nullptr) startShape->RemoveConnector(this);
  if (endShape != nullptr) endShape->RemoveConnector(this);
}

const std::string& Line::GetTypeName() const {
  static const std::string keyword = "Line";
  return keyword;
}

void Line::Write(ModelStream& stream) const {
  ComplexShape::Write(stream);
  stream << start.x << ' ' << start.y << ' ' << end.x << ' ' << end.y << '\n';
  const bool attached = mgr != nullptr;
  const std::int32_t first = startShape != nullptr ? startShape->GetId() : attached ? 0 : startId;
  const std::int32_t second = endShape != nullptr ? endShape->GetId() : attached ? 0 : endId;
  stream << first << ' ' << second << '\n';
  stream << std::uint32_t{startKey.side} << ' ' << std::uint32_t{startKey.index} << ' '
         << std::uint32_t{endKey.side} << ' ' << std::uint32_t{endKey.index} << '\n';
  stream << colourIndex << ' ' << styleIndex << '\n';
}

void Line::Read(ModelStream& stream) {
  ComplexShape::Read(stream);
  stream >> start.x >> start.y >> end.x >> end.y;
  SkipLine(stream.In());
  stream >> startId >> endId;
  SkipLine(stream.In());
  stream >> startKey.side >> startKey.index >> endKey.side >> endKey.index;
  SkipLine(stream.In());
  stream >> colourIndex >> styleIndex;
  SkipLine(stream.In());
}

bool Line::RemapIds(IdMap& map) {
  ComplexShape::RemapIds(map);
  for (std::int32_t* reference : {&startId, &endId}) {
    const auto found = map.find(*reference);
    *reference = *reference != 0 && found != map.end() ? found->second : 0;
  }
  return true;
}

/// Notes are of the same layer, so that the ends are looked up when all of it is there. A reference
/// to no object, or to one that has no anchors, leaves the end free.
void Line::OnLayerPlaced() {
  startShape = FindConnectable(startId);
  if (startShape != nullptr) startShape->AddConnector(this);
  endShape = FindConnectable(endId);
  if (endShape != nullptr) endShape->AddConnector(this);
}

Connectable* Line::FindConnectable(std::int32_t shapeId) const {
  return dynamic_cast<Connectable*>(mgr->Find(shapeId));
}

void Line::Draw(CDC* dc) {
  CurrentRegion();
  const POINT from = view->ToLogical(start);
  POINT to = view->ToLogical(end);
  if (from == to) {
    // A point, one device pixel wide and at least one logical unit.
    const POINT next = dc->DPtoLP(dc->LPtoDP(from) + POINT{1, 0});
    to.x = std::max(AddSat(from.x, 1), next.x);
  }
  const CPen oldPen = dc->SelectPen(MakeLinePen(styleIndex, colourIndex));
  dc->MoveTo(from);
  dc->LineTo(to);
  dc->SelectPen(oldPen);
}

void Line::DrawMarks(CDC& window) {
  if (!IsInSelection()) return;
  window.FillSolidRect(GetStartHandle(), DrawResources::Instance().handleColour);
  window.FillSolidRect(GetEndHandle(), DrawResources::Instance().handleColour);
}

CRgn Line::RegionAt(const Conversion& convert) const {
  const POINT first = convert(start);
  const POINT last = convert(end);
  CRgn area = MakeSegmentRegion(first, last, kBandHalfWidth);
  area.Add(CRgn::FromRect(HandleAround(first)));
  area.Add(CRgn::FromRect(HandleAround(last)));
  return area;
}

void Line::BuildRegion() {
  region = std::make_unique<CRgn>(RegionAt([this](POINT p) { return view->ToClient(p); }));
  NoteView();
}

RECT Line::GetMoveBounds() const { return NormalizeRect({start.x, start.y, end.x, end.y}); }

RECT Line::GetPaintBounds() const {
  return InflateRect(NormalizeRect({start.x, start.y, end.x, end.y}), kBoundsMargin);
}

bool Line::HitTest(const POINT& client) const {
  return IsPlaced() && PtInRect(view->ToClient(GetPaintBounds()), client) &&
         ComplexShape::HitTest(client);
}

RECT Line::GetStartHandle() const { return HandleAround(view->ToClient(start)); }

RECT Line::GetEndHandle() const { return HandleAround(view->ToClient(end)); }

void Line::InvalidateHandles() {
  view->InvalidateRect(GetStartHandle());
  view->InvalidateRect(GetEndHandle());
}

void Line::OnConnectableMoved(Connectable* moved) {
  BuildRegion();
  if (moved == startShape) Follow(*moved, startKey, start);
  if (moved == endShape) Follow(*moved, endKey, end);
  RebuildRegion();
}

/// A key that names no anchor leaves the end where it is.
void Line::Follow(const Connectable& shape, const AnchorKey& key, POINT& lineEnd) {
  if (const POINT* anchor = shape.AnchorAt(key)) lineEnd = *anchor;
}

void Line::OnConnectableGone(Connectable* gone) {
  if (gone == startShape) startShape = nullptr;
  if (gone == endShape) endShape = nullptr;
}

void Line::OnBroadcast(int op, void* arg) {
  switch (op) {
    case BROADCAST_DESELECTED:
    case BROADCAST_SELECTED: InvalidateHandles(); break;
    case BROADCAST_MOVE: MoveBy(*static_cast<const POINT*>(arg)); break;
    default: break;
  }
}

bool Line::GoesWith(const GroupMove& move) const {
  const auto goes = [&move](const Connectable* end) {
    return end == nullptr || move.Contains(dynamic_cast<const Shape*>(end));
  };
  return goes(startShape) && goes(endShape);
}

/// Lets go of what doesn't move along.
void Line::MoveBy(POINT offset) {
  BuildRegion();
  for (Connectable** shape : {&startShape, &endShape}) {
    if (*shape == nullptr || (*shape)->MovesAlong()) continue;
    (*shape)->RemoveConnector(this);
    *shape = nullptr;
  }
  start = start + offset;
  end = end + offset;
  RebuildRegion();
}

void Line::OnCommand(unsigned command) {
  switch (command) {
    case ID_LINE_DELETE:
      if (ConfirmDeletion(IDS_CONFIRM_LINE_DELETION)) delete this;
      break;
    case ID_OBJECT_PROPERTIES: EditProperties(); break;
    default: ComplexShape::OnCommand(command);
  }
}

void Line::EditProperties() {
  if (!Service<Editors>::Get().EditLine(colourIndex, styleIndex)) return;
  Invalidate();
}

}  // namespace morvane
