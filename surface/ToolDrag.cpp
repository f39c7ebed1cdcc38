#include "surface/ToolDrag.h"

#include <algorithm>
#include <iterator>

#include "connectors/NewObjects.h"
#include "platform/DragImages.h"
#include "platform/Service.h"
#include "resources/CommandIds.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// The picture of a tool hangs so far to the lower right of the pointer, pixels.
constexpr POINT kToolImageOffset{10, 10};

/// What comes of each tool.
struct ToolObject {
  unsigned tool;
  void (*insert)(ModelMgr& model, POINT& client);
} constexpr kObjects[] = {
    {ID_TOOL_STATE, InsertGenericState},
    {ID_TOOL_TRANSITION, InsertTransition},
    {ID_TOOL_INITIAL_STATE, InsertInitialState},
    {ID_TOOL_FINAL_STATE, InsertFinalState},
    {ID_TOOL_NOTE, InsertNote},
    {ID_TOOL_LINE, InsertLine},
};

}  // namespace

ToolDrag::~ToolDrag() {
  if (IsRunning()) Service<DragImages>::Get().Hide();
}

void ToolDrag::Choose(unsigned id) {
  const bool again = id == tool;
  EndToolDrag();
  if (again) return;
  tool = id;
  // What lies under the pointer has nothing to offer now.
  view.OnMouseLeave();
  Move(view.GetCursorPos());
}

void ToolDrag::BeginToolDrag() {
  if (tool == 0) return;
  inHand = true;
  view.SetCapture();
}

void ToolDrag::Move(POINT client) {
  if (PtInRect(view.GetClientRect(), client)) {
    Service<DragImages>::Get().Show(tool, view.ClientToScreen(client) + kToolImageOffset);
  } else {
    Service<DragImages>::Get().Hide();
  }
}

void ToolDrag::Leave() {
  if (inHand) return EndToolDrag();
  if (IsRunning()) Service<DragImages>::Get().Hide();
}

bool ToolDrag::Drop(POINT client) {
  const bool inside = IsRunning() && PtInRect(view.GetClientRect(), client);
  if (inside) {
    const auto* object = std::ranges::find(kObjects, tool, &ToolObject::tool);
    if (object != std::end(kObjects)) object->insert(view.GetModel(), client);
  }
  if (!inside || !kept) EndToolDrag();
  return inside;
}

void ToolDrag::EndToolDrag() {
  if (!IsRunning()) return;
  tool = 0;
  kept = false;
  Service<DragImages>::Get().Hide();
  if (inHand) view.ReleaseCapture();
  inHand = false;
}

}  // namespace morvane
