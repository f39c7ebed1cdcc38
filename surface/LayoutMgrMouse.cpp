#include <algorithm>

#include "connectors/AnchorSnap.h"
#include "connectors/NewObjects.h"
#include "drawing/CDC.h"
#include "model/Collection.h"
#include "model/DrawResources.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "states/EndableState.h"
#include "states/StartableState.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectMenus.h"
#include "surface/ToolDrag.h"
#include "surface/ViewGeometry.h"

namespace morvane {

// The mouse and the keys over a chart.

void LayoutMgr::TrackAnchorTarget(POINT& client, void* context) {
  auto& view = *static_cast<LayoutMgr*>(context);
  const auto* target = dynamic_cast<EndableState*>(view.FindShapeNear(client, LAYER_STATE));
  SnapToAnchor(target, view, view.targetMark, client);
}

bool LayoutMgr::BeginConnection(POINT press) {
  ShowHover(press);
  PointTracker tracker(this, TrackAnchorTarget, true);
  tracker.fixedPoint = press;
  tracker.movingPoint = press;
  if (!tracker.Track(this)) return true;

  Shape* sourceShape = FindShapeNear(press, LAYER_STATE);
  auto* source = dynamic_cast<StartableState*>(sourceShape);
  AnchorKey sourceKey;
  if (source == nullptr || !FindAnchorAt(*source, press, sourceKey)) return false;

  const POINT drop = tracker.movingPoint;
  Shape* targetShape = FindShapeNear(drop, LAYER_STATE);
  auto* target = dynamic_cast<EndableState*>(targetShape);
  AnchorKey targetKey;
  if (target == nullptr && targetShape == sourceShape) return false;
  if (target != nullptr && !FindAnchorAt(*target, drop, targetKey)) target = nullptr;
  ConnectAnchors(*model, source, target, &sourceKey, &targetKey, &drop);
  return true;
}

void LayoutMgr::OnLButtonDown(unsigned flags, POINT p) {
  if (IsBusy()) return;
  const auto held = HoldModel();
  sourceMark.Hide();
  bool mayHaveChanged = false;
  {
    const Gesture gesture(*this);
    mayHaveChanged = held->OnLButtonDown(flags, p.x, p.y);
    HideHover();
  }
  RefreshHover();
  if (mayHaveChanged) TakeSnapshot();
}

void LayoutMgr::OnLButtonDblClk(unsigned flags, POINT p) {
  if (IsBusy()) return;
  const auto held = HoldModel();
  if (held->OnLButtonDblClk(flags, p.x, p.y)) TakeSnapshot();
}

void LayoutMgr::OnLButtonUp(unsigned /*flags*/, POINT p) {
  if (ModalLoop::IsRunning()) return;
  if (tools->Drop(p)) TakeSnapshot();
}

void LayoutMgr::OnMouseMove(unsigned /*flags*/, POINT p) {
  if (tools->IsRunning()) {
    if (!ModalLoop::IsRunning()) tools->Move(p);
    return;
  }
  ShowHover(p);
}

void LayoutMgr::OnMouseLeave() {
  if (!HasCapture()) HideHover();
}

void LayoutMgr::ShowHover(POINT client) {
  const auto* source = dynamic_cast<StartableState*>(FindShapeNear(client, LAYER_STATE));
  overAnchor = SnapToAnchor(source, *this, sourceMark, client);
  targetMark.Hide();
}

void LayoutMgr::RefreshHover() {
  HideHover();
  const POINT pointer = GetCursorPos();
  const bool free = !tools->IsRunning() && !HasCapture();
  if (free && PtInRect(GetClientRect(), pointer)) ShowHover(pointer);
}

void LayoutMgr::HideHover() {
  sourceMark.Hide();
  targetMark.Hide();
  overAnchor = false;
}

void LayoutMgr::OnSetCursor() {
  if (!model->OnSetCursor(this, 0, 0)) SetCursor(DrawResources::Instance().arrow);
}

void LayoutMgr::OnContextMenu(POINT screen) {
  if (IsBusy()) return;
  const POINT client = ScreenToClient(screen);
  const auto held = HoldModel();
  if (held->OnContextMenu(this, client.x, client.y)) return;
  ShowChartMenu(screen);
}

void LayoutMgr::ShowObjectMenu(Shape* shape, POINT screen) {
  menuWindow.SetTarget(shape);
  menuWindow.ShowMenu(shape, screen);
}

void LayoutMgr::ShowChartMenu(POINT screen) {
  const unsigned chosen =
      TrackContextMenu(MenuOfChart(), screen, [this](unsigned id) { return OnUpdateCommand(id); });
  if (chosen != 0) OnCommand(chosen);
  TakeSnapshot();
}

void LayoutMgr::OnZoom(int steps, POINT client) {
  if (ModalLoop::IsRunning()) return;
  ChangeZoom(std::clamp<int>(zoom + steps, std::min(zoom, kMinZoom), kMaxZoom), client);
}

bool LayoutMgr::OnKeyDown(VirtualKey key, unsigned /*flags*/) {
  if (IsBusy()) return false;
  const auto held = HoldModel();
  switch (key) {
    case VirtualKey::Escape:
      tools->EndToolDrag();
      model->DeselectAll();
      return true;
    case VirtualKey::Delete: DeleteSelection(); return true;
    case VirtualKey::Space: return OnCommand(ID_FIND_REPLACE);
    default: return geometry->ScrollByKey(key);
  }
}

}  // namespace morvane
