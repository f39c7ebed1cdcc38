#include "surface/ObjectCommands.h"

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "model/ChartView.h"
#include "model/ConnectableRectShape.h"
#include "resources/CommandIds.h"
#include "states/GenericState.h"

namespace morvane {

namespace {

const Mesg* MesgOf(const Shape& object) {
  const auto* transition = dynamic_cast<const Transition*>(&object);
  return transition != nullptr ? transition->GetMesg() : nullptr;
}

CommandState Always(const Shape& /*object*/, unsigned /*id*/) {
  return CommandState::Enabled(true);
}

CommandState IfNoMesg(const Shape& object, unsigned /*id*/) {
  return CommandState::Enabled(MesgOf(object) == nullptr);
}

CommandState IfMesg(const Shape& object, unsigned /*id*/) {
  return CommandState::Enabled(MesgOf(object) != nullptr);
}

CommandState IfMesgAside(const Shape& object, unsigned /*id*/) {
  const Mesg* mesg = MesgOf(object);
  return CommandState::Enabled(mesg != nullptr && !mesg->IsAligned());
}

CommandState IfAside(const Shape& object, unsigned /*id*/) {
  const auto* mesg = dynamic_cast<const Mesg*>(&object);
  return CommandState::Enabled(mesg != nullptr && !mesg->IsAligned());
}

CommandState IfContents(const Shape& object, unsigned /*id*/) {
  const auto* state = dynamic_cast<const GenericState*>(&object);
  return CommandState::Enabled(state != nullptr && !state->Contents().empty());
}

CommandState WhetherAnchorsShow(const Shape& object, unsigned /*id*/) {
  const auto* shape = dynamic_cast<const ConnectableRectShape*>(&object);
  return CommandState::Checked(shape != nullptr && shape->AreAnchorsShown());
}

/// Each class does its own, and what all have its base does.
void HandOver(Shape& object, unsigned id) { object.OnCommand(id); }

void EditInPlace(Shape& object, unsigned /*id*/) { object.GetView()->EditInPlace(object); }

constexpr CommandRow<Shape> kRows[] = {
    {{ID_EDIT_OBJECT, "Rename"}, Always, EditInPlace},
    {{ID_OBJECT_PROPERTIES, "Properties..."}, Always, HandOver},
    {{ID_SHOW_ANCHORS, "Show Anchors"}, WhetherAnchorsShow, HandOver},
    {{ID_STATE_EDIT_TEXTS, "Edit Entry/Exit"}, Always, HandOver},
    {{ID_SELECT_CONTENTS, "Select contents"}, IfContents, HandOver},
    {{ID_STATE_DELETE, "Delete State"}, Always, HandOver},
    {{ID_TRANSITION_ADD_MESG, "Add Message"}, IfNoMesg, HandOver},
    {{ID_TRANSITION_ALIGN_MESG, "Align Message"}, IfMesgAside, HandOver},
    {{ID_TRANSITION_DELETE_MESG, "Delete Message"}, IfMesg, HandOver},
    {{ID_TRANSITION_DELETE, "Delete Transition"}, Always, HandOver},
    {{ID_MESG_EDIT, "Edit..."}, Always, HandOver},
    {{ID_MESG_ALIGN, "Align"}, IfAside, HandOver},
    {{ID_MESG_DELETE, "Delete Mesg"}, Always, HandOver},
    {{ID_NOTE_EDIT, "Edit..."}, Always, HandOver},
    {{ID_NOTE_DELETE, "Delete Note"}, Always, HandOver},
    {{ID_LINE_DELETE, "Delete Line"}, Always, HandOver},
};

}  // namespace

const CommandTable<Shape>& ObjectCommands() {
  static constexpr CommandTable<Shape> table(kRows);
  return table;
}

}  // namespace morvane
