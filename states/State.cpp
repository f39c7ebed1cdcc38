#include "states/State.h"

#include "model/Defaults.h"
#include "model/ModelStream.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

State::State(std::int32_t id, ChartView* view, const RECT& rect, const std::string& name)
    : ConnectableRectShape(id, view, rect, LAYER_STATE), name(name) {
  showAnchors = Defaults::Instance().StateAnchor != 0;
}

void State::Write(ModelStream& stream) const {
  ConnectableRectShape::Write(stream);
  stream << name << '\n';
}

void State::Read(ModelStream& stream) {
  ConnectableRectShape::Read(stream);
  name = ReadLine(stream.In());
}

void State::OnCommand(unsigned command) {
  if (command != ID_STATE_DELETE) return ConnectableRectShape::OnCommand(command);
  if (ConfirmDeletion(IDS_CONFIRM_DELETION)) delete this;
}

void State::RefreshMiddleAnchors() {
  ClearAnchors();
  const POINT middle = CentreOf(rect);
  anchors.Add({1, SIDE_TOP}, {middle.x, rect.top});
  anchors.Add({1, SIDE_RIGHT}, {rect.right, middle.y});
  anchors.Add({1, SIDE_BOTTOM}, {middle.x, rect.bottom});
  anchors.Add({1, SIDE_LEFT}, {rect.left, middle.y});
}

bool State::YieldsToConnection(unsigned /*flags*/, POINT client) { return !IsOnHandle(client); }

}  // namespace morvane
