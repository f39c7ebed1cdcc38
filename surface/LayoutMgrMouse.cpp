#include <algorithm>

#include "model/Collection.h"
#include "model/DrawResources.h"
#include "model/ModelMgr.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "surface/ChartWatcher.h"
#include "surface/ConnectionDrag.h"
#include "surface/InPlaceEdit.h"
#include "surface/KeyboardInsert.h"
#include "surface/KeyboardWalk.h"
#include "surface/LayoutMgr.h"
#include "surface/Nudge.h"
#include "surface/ObjectMenus.h"
#include "surface/Pasting.h"
#include "surface/ToolDrag.h"
#include "surface/ViewGeometry.h"

namespace morvane {

// The mouse and the keys over a chart.

ChartView::ConnectionPress LayoutMgr::BeginConnection(unsigned flags, POINT press) {
  return connections->Begin(flags, press);
}

void LayoutMgr::OnLButtonDown(unsigned flags, POINT p) {
  if (IsBusy() || watcher != nullptr) return;
  FinishTyping();
  const auto held = HoldModel();
  connections->HideHover();
  const bool underTool = tools->IsRunning();
  bool mayHaveChanged = false;
  {
    const Gesture gesture(*this);
    // A press under a tool selects; while the view holds the mouse no drag starts.
    if (underTool) SetCapture();
    mayHaveChanged = held->OnLButtonDown(flags, p.x, p.y);
    if (underTool) ReleaseCapture();
  }
  RefreshHover();
  if (mayHaveChanged) TakeSnapshot();
}

void LayoutMgr::OnLButtonDblClk(unsigned flags, POINT p) {
  if (tools->IsRunning()) return OnLButtonDown(flags, p);
  if (IsBusy()) return;
  const auto held = HoldModel();
  if (watcher != nullptr) return watcher->OnDoubleClick(model->ObjectAt(p));
  if (held->OnLButtonDblClk(flags, p.x, p.y)) TakeSnapshot();
}

void LayoutMgr::OnLButtonUp(unsigned /*flags*/, POINT p) {
  if (ModalLoop::IsRunning()) return;
  if (tools->Drop(p)) TakeSnapshot();
}

void LayoutMgr::OnMouseMove(unsigned flags, POINT p) {
  if (watcher != nullptr) return;
  if (!tools->IsRunning()) return connections->ShowHover(flags, p);
  if (!ModalLoop::IsRunning()) tools->Move(p);
}

void LayoutMgr::OnMouseLeave() {
  if (HasCapture()) return;
  connections->HideHover();
  tools->Leave();
}

void LayoutMgr::OnDeactivate() {
  FinishTyping();
  if (tools->IsRunning()) tools->EndToolDrag();
}

bool LayoutMgr::EditInPlace(Shape& shape) {
  if (watcher != nullptr) return false;
  connections->HideHover();
  return inPlace->Begin(shape);
}

void LayoutMgr::OnTextBoxLeft(bool keep) { inPlace->End(keep); }

void LayoutMgr::FinishTyping() { inPlace->End(true); }

bool LayoutMgr::EditSelection(unsigned flags) {
  const std::vector<Collectable*>& members = GetSelection().Members();
  auto* shape = members.size() == 1 ? dynamic_cast<Shape*>(members.front()) : nullptr;
  if (shape == nullptr) return false;
  const bool plain = (flags & (MK_ALT | MK_CONTROL)) == 0;
  if (plain && EditInPlace(*shape)) return true;
  Shape& holder = InPlaceEdit::HolderOf(*shape);
  menuWindow.SetTarget(&holder);
  menuWindow.OnCommand(EditorOf(holder, (flags & MK_ALT) != 0));
  return true;
}

void LayoutMgr::RefreshHover() {
  connections->HideHover();
  const POINT pointer = GetCursorPos();
  const bool free = !tools->IsRunning() && !HasCapture() && watcher == nullptr;
  if (free && PtInRect(GetClientRect(), pointer)) connections->ShowHover(0, pointer);
}

void LayoutMgr::OnSetCursor() {
  if (watcher != nullptr || !model->OnSetCursor(this, 0, 0))
    SetCursor(DrawResources::Instance().arrow);
}

void LayoutMgr::OnContextMenu(POINT screen) {
  if (IsBusy()) return;
  FinishTyping();
  const POINT client = ScreenToClient(screen);
  const auto held = HoldModel();
  if (watcher != nullptr) return watcher->OnMenu(model->ObjectAt(client), screen);
  if (held->OnContextMenu(this, client.x, client.y)) return;
  ShowChartMenu(screen);
}

void LayoutMgr::OnMenuKey() {
  if (IsBusy()) return;
  FinishTyping();
  Shape* shape = walk->Current();
  if (watcher != nullptr) {
    return watcher->OnMenu(shape, ClientToScreen(geometry->MiddleOfWindow()));
  }
  if (shape == nullptr) return ShowChartMenu(ClientToScreen(geometry->MiddleOfWindow()));
  ScrollIntoView(*shape);
  const POINT place = CentreOf(PlaceOnScreen(*shape));
  const auto held = HoldModel();
  held->ShowObjectMenu(shape, place.x, place.y);
}

void LayoutMgr::ShowObjectMenu(Shape* shape, POINT screen) {
  if (watcher != nullptr) return watcher->OnMenu(shape, screen);
  menuWindow.SetTarget(shape);
  menuWindow.ShowMenu(shape, screen);
}

void LayoutMgr::ShowChartMenu(POINT screen) {
  if (watcher != nullptr) return watcher->OnMenu(nullptr, screen);
  const Pasting::MenuPlace place(*pasting, screen);
  const unsigned chosen =
      TrackContextMenu(MenuOfChart(), screen, [this](unsigned id) { return OnUpdateCommand(id); });
  if (chosen != 0) OnCommand(chosen);
  TakeSnapshot();
}

void LayoutMgr::OnZoom(int steps, POINT client) {
  if (ModalLoop::IsRunning()) return;
  FinishTyping();
  ChangeZoom(std::clamp<int>(zoom + steps, std::min(zoom, kMinZoom), kMaxZoom), client);
}

/// What the keyboard does in place of a mouse; false for any other key.
bool LayoutMgr::WalkByKey(VirtualKey key, unsigned flags) {
  if ((flags & (MK_CONTROL | MK_ALT)) != 0) return false;
  const bool withShift = (flags & MK_SHIFT) != 0;
  switch (key) {
    case VirtualKey::Tab: walk->Step(!withShift); return true;
    case VirtualKey::Space:
      if (withShift) walk->ToggleKept();
      return withShift;
    case VirtualKey::Return: return InsertByKeyboard(*this);
    default: return false;
  }
}

/// What a key may do to a chart that has to stay as it is: go from object to object, and scroll.
bool LayoutMgr::WatchedKey(VirtualKey key, unsigned flags) {
  const bool isWalk =
      key == VirtualKey::Tab || (key == VirtualKey::Space && (flags & MK_SHIFT) != 0);
  if (isWalk) return WalkByKey(key, flags);
  if (key != VirtualKey::Return) return geometry->ScrollByKey(key);
  watcher->OnDoubleClick(walk->Current());
  return true;
}

bool LayoutMgr::OnKeyDown(VirtualKey key, unsigned flags) {
  if (IsBusy()) return false;
  const auto held = HoldModel();
  if (watcher != nullptr) return WatchedKey(key, flags);
  if (WalkByKey(key, flags)) return true;
  switch (key) {
    case VirtualKey::Escape:
      tools->EndToolDrag();
      model->DeselectAll();
      return true;
    case VirtualKey::Delete: DeleteSelection(); return true;
    case VirtualKey::Return: return EditSelection(flags);
    case VirtualKey::Space: return OnCommand(ID_FIND_REPLACE);
    default: return nudge->TakesKey(key, flags) || geometry->ScrollByKey(key);
  }
}

}  // namespace morvane
