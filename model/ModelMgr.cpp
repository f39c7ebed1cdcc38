#include "model/ModelMgr.h"

#include <algorithm>
#include <array>

#include "drawing/CDC.h"
#include "model/AnchorZone.h"
#include "model/ChartView.h"
#include "model/Connectable.h"
#include "model/GroupMove.h"
#include "model/ModelClipboard.h"
#include "model/ModelStream.h"
#include "model/ObjectBrowser.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// All layers from the lowest to the highest: the order of painting. Hits go the other way.
constexpr std::array kPaintOrder = {LAYER_STATE, LAYER_MESG, LAYER_RESERVED, LAYER_TRANSITION,
                                    LAYER_NOTE};
/// What is looked up by id stands in the registry before what looks it up.
constexpr std::array kPlaceOrder = {LAYER_STATE, LAYER_TRANSITION, LAYER_MESG, LAYER_NOTE,
                                    LAYER_RESERVED};

/// The top object, by layer and then by place in the list, for which `hit` holds.
template <class Hit>
Shape* TopObject(const std::vector<Shape*>& objects, Layer only, const Hit& hit) {
  for (auto layer = kPaintOrder.rbegin(); layer != kPaintOrder.rend(); ++layer) {
    if (only != LAYER_ALL && only != *layer) continue;
    const auto found = std::find_if(objects.rbegin(), objects.rend(), [&](Shape* shape) {
      return shape->GetLayer() == *layer && hit(*shape);
    });
    if (found != objects.rend()) return *found;
  }
  return nullptr;
}

}  // namespace

ModelMgr::ModelMgr(ChartView* view, const Factory& factory)
    : view(view), clipboard(std::make_unique<ModelClipboard>()), factory(factory) {
  selection.SetListener([this] {
    if (ObjectBrowser* browser = Browser()) browser->OnSelectionChanged();
    if (shown && this->view != nullptr) this->view->OnSelectionChanged();
  });
}

ModelMgr::~ModelMgr() {
  clipboard.reset();
  pasteList.clear();
  Hide();
  data.DeleteAll();
}

ObjectBrowser* ModelMgr::Browser() const {
  return shown && view != nullptr ? view->GetObjectTree() : nullptr;
}

void ModelMgr::PlaceAll() {
  const std::vector<Shape*> list = Objects();
  Place(list);
}

void ModelMgr::Show() {
  shown = true;
  if (view != nullptr) view->Invalidate();
  if (ObjectBrowser* browser = Browser()) browser->AddAllNodes(Objects());
}

void ModelMgr::Hide() {
  if (ObjectBrowser* browser = Browser()) browser->RemoveAllNodes();
  shown = false;
}

bool ModelMgr::Holds(const Shape* shape) const {
  return std::ranges::find(Objects(), shape) != Objects().end();
}

bool ModelMgr::MovesAlong(const Shape* shape) const {
  return runningMove != nullptr ? runningMove->Contains(shape) : selection.Contains(shape);
}

void ModelMgr::Place(const std::vector<Shape*>& list) {
  for (const Layer layer : kPlaceOrder) {
    for (Shape* shape : list) {
      if (shape->GetLayer() == layer) shape->AttachTo(this, view);
    }
    for (Shape* shape : list) {
      if (shape->GetLayer() == layer) shape->OnLayerPlaced();
    }
  }
}

void ModelMgr::AddShape(Shape* shape, std::int32_t id) {
  if (ObjectBrowser* browser = Browser()) browser->AddNode(shape);
  ShapeRegistry::AddShape(shape, id);
}

void ModelMgr::RemoveShape(Shape* shape) {
  ShapeRegistry::RemoveShape(shape);
  if (ObjectBrowser* browser = Browser()) browser->RemoveNodes(shape);
  data.Release(shape);
  view->Invalidate();
}

void ModelMgr::Adopt(std::unique_ptr<Shape> made) {
  made->AttachTo(this, view);
  data.Append(std::move(made));
}

Shape* ModelMgr::ObjectAt(const POINT& client) const {
  return TopObject(Objects(), LAYER_ALL, [&](const Shape& shape) { return shape.HitTest(client); });
}

Shape* ModelMgr::ObjectNear(const POINT& client, Layer layer) const {
  const POINT model = view->ToAbsolute(client);
  return TopObject(Objects(), layer, [&](const Shape& shape) { return shape.HitTestNear(model); });
}

AnchorOffer ModelMgr::AnchorNear(const POINT& client, Layer layer, const AnchorOwner& owner) const {
  AnchorZone zone(*view, client);
  TopObject(Objects(), layer, [&](Shape& shape) {
    // Routes and lines leave room enough for the anchors on which they hang.
    if (dynamic_cast<Connectable*>(&shape) == nullptr) return false;
    Connectable* found = zone.Reaches(shape.GetBounds()) ? owner(shape) : nullptr;
    if (found != nullptr) zone.Consider(*found);
    return shape.HitTest(client);
  });
  return zone.Nearest();
}

std::vector<Shape*> ModelMgr::FindShapesInRect(const RECT& client) const {
  const RECT model = NormalizeRect(view->AddScroll(view->ToModel(client)));
  std::vector<Shape*> found;
  std::copy_if(Objects().begin(), Objects().end(), std::back_inserter(found),
               [&](const Shape* shape) { return shape->IsInsideRect(model); });
  return found;
}

void ModelMgr::GetChartExtent(std::int32_t& right, std::int32_t& bottom) const {
  right = 0;
  bottom = 0;
  for (const Shape* shape : Objects()) {
    std::int32_t shapeRight = 0;
    std::int32_t shapeBottom = 0;
    shape->GetExtent(shapeRight, shapeBottom);
    right = std::max(right, shapeRight);
    bottom = std::max(bottom, shapeBottom);
  }
}

/// The shapes that a context shows, layer by layer, with one look at every object.
std::vector<Shape*> ModelMgr::ShapesOn(const CDC& dc, bool selectedOnly) const {
  std::array<std::vector<Shape*>, kPaintOrder.size()> visible;
  // Marks have their size in pixels, which reach further where the view shows less than any zoom.
  constexpr std::int32_t smallMargin = 8;
  const std::int32_t margin = view->GetZoom() < ChartView::kMinZoom ? smallMargin : 0;
  for (Shape* shape : Objects()) {
    if (selectedOnly && !selection.Contains(shape)) continue;
    const RECT touched = InflateRect(shape->GetPaintBounds(), margin);
    if (!dc.RectVisible(view->ToLogical(touched))) continue;
    const auto layer = std::find(kPaintOrder.begin(), kPaintOrder.end(), shape->GetLayer());
    if (layer == kPaintOrder.end()) continue;
    visible[static_cast<std::size_t>(layer - kPaintOrder.begin())].push_back(shape);
  }
  std::vector<Shape*> shapes;
  for (const std::vector<Shape*>& layer : visible) {
    shapes.insert(shapes.end(), layer.begin(), layer.end());
  }
  return shapes;
}

void ModelMgr::DrawAll(CDC* dc, bool selectedOnly) const {
  for (Shape* shape : ShapesOn(*dc, selectedOnly)) {
    dc->BeginObject(shape->GetId());
    shape->Draw(dc);
    dc->EndObject();
  }
}

void ModelMgr::DrawOnScreen(CDC& dc) const {
  for (Shape* shape : ShapesOn(dc, false)) shape->DrawOnScreen(dc);
}

std::vector<Shape*> ModelMgr::SelectedShapes() const {
  std::vector<Shape*> shapes;
  for (Collectable* member : selection.Members()) shapes.push_back(dynamic_cast<Shape*>(member));
  return shapes;
}

RECT ModelMgr::SelectionBounds() const {
  const std::vector<Shape*> shapes = SelectedShapes();
  if (shapes.empty()) return {};
  RECT box = shapes.front()->GetBounds();
  for (const Shape* shape : shapes) {
    const RECT more = shape->GetBounds();
    box = {std::min(box.left, more.left), std::min(box.top, more.top),
           std::max(box.right, more.right), std::max(box.bottom, more.bottom)};
  }
  return box;
}

void ModelMgr::DeselectAll() {
  selection.Broadcast(BROADCAST_DESELECTED, nullptr, nullptr);
  selection.Clear();
}

void ModelMgr::Select(const std::vector<Shape*>& shapes) {
  DeselectAll();
  for (Shape* shape : shapes) selection.Add(shape);
  selection.Broadcast(BROADCAST_SELECTED, nullptr, nullptr);
}

void ModelMgr::SelectAll() {
  for (Shape* shape : Objects()) selection.Add(shape);
  selection.Broadcast(BROADCAST_SELECTED, nullptr, nullptr);
}

void ModelMgr::BringToFront(Shape* shape) {
  data.Release(shape);
  const std::vector<Shape*>& objects = Objects();
  const auto last = std::find_if(objects.rbegin(), objects.rend(), [&](const Shape* other) {
    return other->GetLayer() == shape->GetLayer();
  });
  // The place behind the last one of the layer.
  const auto behind = static_cast<std::size_t>(objects.rend() - last);
  const bool between = behind > 1 && behind < objects.size();
  data.Insert(between ? behind : objects.size(), shape);
  shape->Invalidate();
}

void ModelMgr::SendToBack(Shape* shape) {
  data.Release(shape);
  const std::vector<Shape*>& objects = Objects();
  const auto first = std::find_if(objects.begin(), objects.end(), [&](const Shape* other) {
    return other->GetLayer() == shape->GetLayer();
  });
  data.Insert(first == objects.end() ? 0 : static_cast<std::size_t>(first - objects.begin()),
              shape);
  shape->Invalidate();
}

void ModelMgr::OrderSelection(bool toFront) {
  const std::vector<Collectable*> copy = selection.Members();
  for (Collectable* member : copy) {
    Shape* shape = dynamic_cast<Shape*>(member);
    toFront ? BringToFront(shape) : SendToBack(shape);
  }
}

void ModelMgr::DeleteSelected(bool prompt) {
  if (Objects().empty()) return;
  if (prompt &&
      ShowMessage(LoadText(IDS_CONFIRM_DELETE_SELECTED), kConfirmFlags) != MessageAnswer::Yes) {
    return;
  }
  // What is asked above shows the chart behind it; the rest of this is painted once.
  view->SetRedraw(false);
  // From the back, where nothing has to move up. An object may take another one along.
  while (!selection.IsEmpty()) delete selection.Members().back();
  view->SetRedraw(true);
}

void ModelMgr::Write(ModelStream& stream) const { data.Write(stream); }

void ModelMgr::Read(ModelStream& stream) {
  ModelData::SkipToRecords(stream);
  data.Read(stream);
}

}  // namespace morvane
