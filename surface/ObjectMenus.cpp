#include "surface/ObjectMenus.h"

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "resources/CommandIds.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"

namespace {

constexpr ObjectMenuEntry kSeparator{0, ""};
constexpr ObjectMenuEntry kProperties{ID_OBJECT_PROPERTIES, "Properties..."};
constexpr ObjectMenuEntry kShowAnchors{ID_SHOW_ANCHORS, "Show Anchors"};
constexpr ObjectMenuEntry kToFront{ID_BRING_TO_FRONT, "Bring to &front"};
constexpr ObjectMenuEntry kToBack{ID_SEND_TO_BACK, "Send to &back"};

constexpr ObjectMenuEntry kGenericStateMenu[] = {kProperties,
                                                 {ID_STATE_EDIT_TEXTS, "Edit Entry/Exit"},
                                                 kShowAnchors,
                                                 kSeparator,
                                                 {ID_STATE_DELETE, "Delete State"},
                                                 kSeparator,
                                                 kToFront,
                                                 kToBack};
constexpr ObjectMenuEntry kInitialStateMenu[] = {
    kShowAnchors, kSeparator, {ID_STATE_DELETE, "Delete Initial State"},
    kSeparator,   kToFront,   kToBack};
constexpr ObjectMenuEntry kFinalStateMenu[] = {
    kShowAnchors, kSeparator, {ID_STATE_DELETE, "Delete Final State"},
    kSeparator,   kToFront,   kToBack};
constexpr ObjectMenuEntry kTransitionMenu[] = {{ID_TRANSITION_ADD_MESG, "Add Message"},
                                               {ID_TRANSITION_ALIGN_MESG, "Align Message"},
                                               {ID_TRANSITION_DELETE_MESG, "Delete Message"},
                                               kSeparator,
                                               {ID_TRANSITION_DELETE, "Delete Transition"},
                                               kSeparator,
                                               kToFront,
                                               kToBack};
constexpr ObjectMenuEntry kMesgMenu[] = {kProperties,
                                         {ID_MESG_EDIT, "Edit..."},
                                         {ID_MESG_ALIGN, "Align"},
                                         kShowAnchors,
                                         kSeparator,
                                         {ID_MESG_DELETE, "Delete Mesg"},
                                         kSeparator,
                                         kToFront,
                                         kToBack};
constexpr ObjectMenuEntry kNoteMenu[] = {kProperties,
                                         {ID_NOTE_EDIT, "Edit..."},
                                         kShowAnchors,
                                         kSeparator,
                                         {ID_NOTE_DELETE, "Delete Note"},
                                         kSeparator,
                                         kToFront,
                                         kToBack};
constexpr ObjectMenuEntry kLineMenu[] = {kProperties, kSeparator, {ID_LINE_DELETE, "Delete Line"},
                                         kSeparator,  kToFront,   kToBack};
constexpr ObjectMenuEntry kChartMenu[] = {{ID_TOOL_STATE, "Insert &State"},
                                          {ID_TOOL_INITIAL_STATE, "Insert &Initial State"},
                                          {ID_TOOL_FINAL_STATE, "Insert &Final State"},
                                          {ID_TOOL_NOTE, "Insert &Note"},
                                          {ID_TOOL_LINE, "Insert &Line"},
                                          kSeparator,
                                          {ID_EDIT_SELECT_ALL, "Select &All"},
                                          {ID_REFRESH, "&Refresh"},
                                          kSeparator,
                                          {ID_MODEL_PROPERTIES, "&Model Properties..."},
                                          kSeparator,
                                          {ID_CODEGEN_PROPERTIES, "CodeGen &Properties"}};

template <class Kind>
bool Is(const Shape* shape) {
  return dynamic_cast<const Kind*>(shape) != nullptr;
}

}  // namespace

std::span<const ObjectMenuEntry> MenuOf(const Shape* shape) {
  if (Is<GenericState>(shape)) return kGenericStateMenu;
  if (Is<InitialState>(shape)) return kInitialStateMenu;
  if (Is<FinalState>(shape)) return kFinalStateMenu;
  if (Is<Transition>(shape)) return kTransitionMenu;
  if (Is<Mesg>(shape)) return kMesgMenu;
  if (Is<Note>(shape)) return kNoteMenu;
  if (Is<Line>(shape)) return kLineMenu;
  return {};
}

std::span<const ObjectMenuEntry> MenuOfChart() { return kChartMenu; }
