#include "surface/KeyboardInsert.h"

#include <algorithm>
#include <iterator>

#include "connectors/Joining.h"
#include "connectors/Note.h"
#include "model/ModelMgr.h"
#include "resources/CommandIds.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/ConnectCommands.h"
#include "surface/FreePlace.h"
#include "surface/LayoutMgr.h"
#include "surface/ToolDrag.h"

namespace morvane {

namespace {

/// What comes of a tool around the point where it is let go, model units.
struct ToolExtent {
  unsigned tool;
  RECT extent;
} constexpr kExtents[] = {
    {ID_TOOL_STATE, GenericState::DefaultRect()},
    {ID_TOOL_INITIAL_STATE, InitialState::DefaultRect()},
    {ID_TOOL_FINAL_STATE, FinalState::DefaultRect()},
    {ID_TOOL_NOTE, Note::DefaultRect()},
    {ID_TOOL_TRANSITION, {0, -4, 0, 4}},
    {ID_TOOL_LINE, {-8, -8, 8, 8}},
};

/// The only state that is selected; null if there is none or more is selected.
const Shape* SelectedState(const LayoutMgr& chart) {
  const std::vector<Collectable*>& members = chart.GetSelection().Members();
  return members.size() == 1 ? dynamic_cast<const GenericState*>(members.front()) : nullptr;
}

POINT FindPlace(const LayoutMgr& chart, const RECT& extent) {
  const ModelMgr& model = chart.GetModel();
  const SIZE size{static_cast<std::int32_t>(Width(extent)),
                  static_cast<std::int32_t>(Height(extent))};
  const RECT client = chart.GetClientRect();
  const POINT end = chart.ToAbsolute(BottomRight(client));
  const POINT begin = chart.ToAbsolute(TopLeft(client));
  const RECT seen{begin.x, begin.y, end.x, end.y};
  const POINT middle = CentreOf(seen);
  std::optional<POINT> place;
  if (const Shape* holder = SelectedState(chart)) {
    place = FindFreePlace(model, size, seen, CentreOf(holder->GetBounds()), holder);
  }
  if (!place) place = FindFreePlace(model, size, seen, middle, nullptr);
  return place.value_or(middle) - TopLeft(extent);
}

}  // namespace

bool InsertByKeyboard(LayoutMgr& chart) {
  ToolDrag& tools = chart.GetTools();
  const unsigned tool = tools.Tool();
  const auto* known = std::ranges::find(kExtents, tool, &ToolExtent::tool);
  if (known == std::end(kExtents)) return false;
  const Joint joint = tool == ID_TOOL_TRANSITION ? Joint::Transition
                      : tool == ID_TOOL_LINE     ? Joint::Line
                                                 : Joint::None;
  if (joint != Joint::None && CanConnectTo(chart, joint)) {
    if (ConnectTo(chart, joint) && !tools.IsKept()) tools.EndToolDrag();
    return true;
  }
  const std::size_t before = chart.GetModel().Objects().size();
  const bool dropped = tools.Drop(chart.ToClient(FindPlace(chart, known->extent)));
  const std::vector<Shape*>& objects = chart.GetModel().Objects();
  if (objects.size() > before) chart.Reveal({objects.back()});
  if (dropped) chart.TakeSnapshot();
  return true;
}

}  // namespace morvane
