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

void ToolDrag::Choose(unsigned id) {
  tool = id;
  // A transition goes from the bar to the chart with the button down; its drag begins there.
  if (id != ID_TOOL_TRANSITION) BeginToolDrag();
}

void ToolDrag::BeginToolDrag() {
  if (tool == 0) return;
  toolDragging = true;
  // What lies under the pointer has nothing to offer now.
  view.OnMouseLeave();
  Service<DragImages>::Get().Show(tool,
                                  view.ClientToScreen(view.GetCursorPos()) + kToolImageOffset);
  view.SetCapture();
}

void ToolDrag::Move(POINT client) {
  if (PtInRect(view.GetClientRect(), client)) {
    BeginToolDrag();
    return;
  }
  // Away: the tool goes on when the pointer comes back.
  Service<DragImages>::Get().Hide();
  view.ReleaseCapture();
}

bool ToolDrag::Drop(POINT client) {
  const bool inside = toolDragging && PtInRect(view.GetClientRect(), client);
  if (inside) {
    const auto* object = std::ranges::find(kObjects, tool, &ToolObject::tool);
    if (object != std::end(kObjects)) object->insert(view.GetModel(), client);
  }
  EndToolDrag();
  return inside;
}

void ToolDrag::EndToolDrag() {
  if (!toolDragging) return;
  toolDragging = false;
  Service<DragImages>::Get().Hide();
  view.ReleaseCapture();
  tool = 0;
}

}  // namespace morvane
