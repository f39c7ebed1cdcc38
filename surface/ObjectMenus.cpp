#include "surface/ObjectMenus.h"

#include <algorithm>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "platform/PopupMenus.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/ArrangeMenu.h"
#include "surface/ChartCommands.h"
#include "surface/ObjectCommands.h"

namespace morvane {

namespace {

constexpr MenuEntry kSeparator{};
constexpr MenuEntry kReroute{ID_REROUTE};
constexpr MenuEntry kConnectTo{ID_CONNECT_TO, "Connect to..."};
constexpr MenuEntry kToFront{ID_BRING_TO_FRONT};
constexpr MenuEntry kToBack{ID_SEND_TO_BACK};
constexpr MenuEntry kArrange{0, "", &kArrangeMenu};
constexpr MenuEntry kCut{ID_EDIT_CUT};
constexpr MenuEntry kCopy{ID_EDIT_COPY};
constexpr MenuEntry kPaste{ID_EDIT_PASTE};
constexpr MenuEntry kDuplicate{ID_DUPLICATE};

constexpr MenuEntry kGenericStateMenu[] = {{ID_EDIT_OBJECT, "Rename"},
                                           {ID_OBJECT_PROPERTIES},
                                           {ID_STATE_EDIT_TEXTS},
                                           {ID_SHOW_ANCHORS},
                                           {ID_SELECT_CONTENTS},
                                           kReroute,
                                           kConnectTo,
                                           kSeparator,
                                           kCut,
                                           kCopy,
                                           kPaste,
                                           kDuplicate,
                                           {ID_STATE_DELETE},
                                           kSeparator,
                                           kArrange,
                                           kToFront,
                                           kToBack};
constexpr MenuEntry kInitialStateMenu[] = {{ID_SHOW_ANCHORS},
                                           kReroute,
                                           kConnectTo,
                                           kSeparator,
                                           kCut,
                                           kCopy,
                                           kPaste,
                                           kDuplicate,
                                           {ID_STATE_DELETE, "Delete Initial State"},
                                           kSeparator,
                                           kArrange,
                                           kToFront,
                                           kToBack};
constexpr MenuEntry kFinalStateMenu[] = {{ID_SHOW_ANCHORS},
                                         kReroute,
                                         kConnectTo,
                                         kSeparator,
                                         kCut,
                                         kCopy,
                                         kPaste,
                                         kDuplicate,
                                         {ID_STATE_DELETE, "Delete Final State"},
                                         kSeparator,
                                         kArrange,
                                         kToFront,
                                         kToBack};
constexpr MenuEntry kTransitionMenu[] = {{ID_TRANSITION_ADD_MESG},
                                         {ID_TRANSITION_ALIGN_MESG},
                                         {ID_TRANSITION_DELETE_MESG},
                                         kReroute,
                                         kSeparator,
                                         kCut,
                                         kCopy,
                                         kPaste,
                                         kDuplicate,
                                         {ID_TRANSITION_DELETE},
                                         kSeparator,
                                         kToFront,
                                         kToBack};
constexpr MenuEntry kMesgMenu[] = {{ID_EDIT_OBJECT, "Edit Event"},
                                   {ID_OBJECT_PROPERTIES},
                                   {ID_MESG_EDIT},
                                   {ID_MESG_ALIGN},
                                   {ID_SHOW_ANCHORS},
                                   kConnectTo,
                                   kSeparator,
                                   kCut,
                                   kCopy,
                                   kPaste,
                                   kDuplicate,
                                   {ID_MESG_DELETE},
                                   kSeparator,
                                   kArrange,
                                   kToFront,
                                   kToBack};
constexpr MenuEntry kNoteMenu[] = {{ID_OBJECT_PROPERTIES},
                                   {ID_NOTE_EDIT},
                                   {ID_SHOW_ANCHORS},
                                   kConnectTo,
                                   kSeparator,
                                   kCut,
                                   kCopy,
                                   kPaste,
                                   kDuplicate,
                                   {ID_NOTE_DELETE},
                                   kSeparator,
                                   kArrange,
                                   kToFront,
                                   kToBack};
constexpr MenuEntry kLineMenu[] = {
    {ID_OBJECT_PROPERTIES}, kSeparator, kCut,     kCopy,  kPaste, kDuplicate,
    {ID_LINE_DELETE},       kSeparator, kToFront, kToBack};
constexpr MenuEntry kChartMenu[] = {{ID_TOOL_STATE, "Insert &State"},
                                    {ID_TOOL_INITIAL_STATE, "Insert &Initial State"},
                                    {ID_TOOL_FINAL_STATE, "Insert &Final State"},
                                    {ID_TOOL_NOTE, "Insert &Note"},
                                    {ID_TOOL_LINE, "Insert &Line"},
                                    kSeparator,
                                    {ID_EDIT_PASTE, "Pas&te"},
                                    {ID_EDIT_SELECT_ALL},
                                    {ID_REROUTE_ALL},
                                    {ID_REFRESH},
                                    kSeparator,
                                    {ID_MODEL_PROPERTIES, "&Model Properties..."},
                                    kSeparator,
                                    {ID_CODEGEN_PROPERTIES, "CodeGen &Properties"}};

template <class Kind>
bool Is(const Shape* shape) {
  return dynamic_cast<const Kind*>(shape) != nullptr;
}

std::string_view TextOf(const MenuEntry& entry) {
  if (const auto* row = ObjectCommands().Find(entry.id)) return entry.TextOf(row->command);
  const auto* row = ChartCommands().Find(entry.id);
  return row != nullptr ? entry.TextOf(row->command) : entry.ownText;
}

/// A menu within the menu shows if it has something to offer.
std::vector<PopupMenus::Item> ItemsOf(std::span<const MenuEntry> menu,
                                      const StateOfCommand& stateOf) {
  std::vector<PopupMenus::Item> items;
  for (const MenuEntry& entry : menu) {
    if (entry.popup != nullptr) {
      const std::vector<PopupMenus::Item> popup = ItemsOf(entry.popup->entries, stateOf);
      const bool offers =
          std::ranges::any_of(popup, [](const auto& item) { return item.state.enabled; });
      if (offers) items.push_back({0, Translate(entry.popup->title), {}, popup});
    } else {
      items.push_back({entry.id, Translate(TextOf(entry)), stateOf(entry.id)});
    }
  }
  return items;
}

}  // namespace

std::span<const MenuEntry> MenuOf(const Shape* shape) {
  if (Is<GenericState>(shape)) return kGenericStateMenu;
  if (Is<InitialState>(shape)) return kInitialStateMenu;
  if (Is<FinalState>(shape)) return kFinalStateMenu;
  if (Is<Transition>(shape)) return kTransitionMenu;
  if (Is<Mesg>(shape)) return kMesgMenu;
  if (Is<Note>(shape)) return kNoteMenu;
  if (Is<Line>(shape)) return kLineMenu;
  return {};
}

unsigned EditorOf(const Shape& shape, bool properties) {
  if (Is<Transition>(&shape)) return ID_TRANSITION_ADD_MESG;
  if (properties || Is<Line>(&shape)) return ID_OBJECT_PROPERTIES;
  if (Is<Mesg>(&shape)) return ID_MESG_EDIT;
  return Is<Note>(&shape) ? ID_NOTE_EDIT : ID_STATE_EDIT_TEXTS;
}

std::span<const MenuEntry> MenuOfChart() { return kChartMenu; }

unsigned TrackContextMenu(std::span<const MenuEntry> menu, POINT screen,
                          const StateOfCommand& stateOf) {
  return TrackMenu(ItemsOf(menu, stateOf), screen);
}

}  // namespace morvane
