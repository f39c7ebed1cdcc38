#include "connectors/AnchorSnap.h"
#include "connectors/NewObjects.h"
#include "model/Collection.h"
#include "model/DrawResources.h"
#include "model/ModelMgr.h"
#include "model/PointTracker.h"
#include "platform/DragImages.h"
#include "platform/ModalLoop.h"
#include "platform/PopupMenus.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/StartableState.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectMenus.h"

// The mouse over a chart: the hover marks, the tools and their picture at the pointer, the menu.

namespace {

/// The picture of a tool hangs so far to the lower right of the pointer, pixels.
constexpr POINT kToolImageOffset{10, 10};

bool IsTool(unsigned id) { return id >= ID_TOOL_STATE && id <= ID_TOOL_LINE; }

}  // namespace

void LayoutMgr::TrackAnchorTarget(POINT& client, void* context) {
  auto& view = *static_cast<LayoutMgr*>(context);
  const auto* target = dynamic_cast<EndableState*>(view.FindShapeNear(client, LAYER_STATE));
  SnapToAnchor(target, view, view.targetMark, client);
}

bool LayoutMgr::BeginConnection(POINT press) {
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
  if (held->OnLButtonDown(flags, p.x, p.y)) TakeSnapshot();
}

void LayoutMgr::OnLButtonDblClk(unsigned flags, POINT p) {
  if (IsBusy()) return;
  const auto held = HoldModel();
  if (held->OnLButtonDblClk(flags, p.x, p.y)) TakeSnapshot();
}

void LayoutMgr::OnLButtonUp(unsigned /*flags*/, POINT p) {
  if (ModalLoop::IsRunning()) return;
  const bool placed = toolDragging && PtInRect(GetClientRect(), p);
  if (placed) InsertTool(p);
  EndToolDrag();
  if (placed) TakeSnapshot();
}

void LayoutMgr::OnMouseMove(unsigned /*flags*/, POINT p) {
  if (toolDragging) {
    if (!ModalLoop::IsRunning()) MoveTool(p);
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
  std::vector<PopupMenus::Item> items;
  for (const ObjectMenuEntry& entry : MenuOfChart()) {
    items.push_back({entry.id, Translate(entry.text), OnUpdateCommand(entry.id)});
  }
  const unsigned chosen = TrackMenu(items, screen);
  if (chosen != 0) OnCommand(chosen);
  TakeSnapshot();
}

void LayoutMgr::ChooseTool(unsigned id) {
  tool = id;
  // A transition goes from the bar to the chart with the button down; its drag begins there.
  if (id != ID_TOOL_TRANSITION) BeginToolDrag();
}

void LayoutMgr::BeginToolDrag() {
  if (!IsTool(tool)) return;
  toolDragging = true;
  HideHover();
  Service<DragImages>::Get().Show(tool, ClientToScreen(GetCursorPos()) + kToolImageOffset);
  SetCapture();
}

void LayoutMgr::MoveTool(POINT client) {
  if (PtInRect(GetClientRect(), client)) {
    BeginToolDrag();
    return;
  }
  // Away: the tool goes on when the pointer comes back.
  Service<DragImages>::Get().Hide();
  ReleaseCapture();
}

void LayoutMgr::EndToolDrag() {
  if (!toolDragging) return;
  toolDragging = false;
  Service<DragImages>::Get().Hide();
  ReleaseCapture();
  tool = 0;
}

void LayoutMgr::InsertTool(POINT client) {
  switch (tool) {
    case ID_TOOL_STATE: InsertGenericState(*model, client); break;
    case ID_TOOL_TRANSITION: InsertTransition(*model, client); break;
    case ID_TOOL_INITIAL_STATE: InsertInitialState(*model, client); break;
    case ID_TOOL_FINAL_STATE: InsertFinalState(*model, client); break;
    case ID_TOOL_NOTE: InsertNote(*model, client); break;
    case ID_TOOL_LINE: InsertLine(*model, client); break;
    default: break;
  }
}
