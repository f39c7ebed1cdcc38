#include "shell/MenuTable.h"

#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/AllCommands.h"
#include "surface/ArrangeMenu.h"

namespace morvane {

namespace {

constexpr MenuEntry kSeparator{};

constexpr MenuEntry kStartFile[] = {
    {ID_FILE_NEW}, {ID_FILE_OPEN},   {ID_FILE_IMPORT}, kSeparator,    {ID_FILE_PRINT_SETUP},
    kSeparator,    {ID_FILE_RECENT}, kSeparator,       {ID_APP_EXIT},
};

constexpr MenuEntry kStartEdit[] = {
    {ID_DEFAULT_SETTINGS, "Default Settings"},
    {ID_PREFERENCES},
};

constexpr MenuEntry kStartView[] = {
    {ID_VIEW_TOOLBAR},
    {ID_DRAWING_BAR},
    {ID_CHART_BROWSER},
    {ID_VIEW_STATUS_BAR},
};

constexpr MenuEntry kHelp[] = {
    {ID_USER_GUIDE},
    {ID_TUTORIAL},
    {ID_WEB_PAGE},
    {ID_APP_ABOUT},
};

constexpr MenuEntry kChartFile[] = {
    {ID_FILE_NEW},
    {ID_FILE_OPEN},
    {ID_FILE_IMPORT},
    kSeparator,
    {ID_FILE_SAVE},
    {ID_FILE_SAVE_AS},
    {ID_FILE_REVERT},
    {ID_FILE_COMPARE},
    kSeparator,
    {ID_FILE_CLOSE},
    {ID_CLOSE_ALL},
    kSeparator,
    {ID_FILE_PRINT},
    {ID_FILE_PRINT_PREVIEW},
    {ID_FILE_PRINT_SETUP},
    {ID_FILE_EXPORT},
    kSeparator,
    {ID_FILE_RECENT},
    kSeparator,
    {ID_APP_EXIT},
};

constexpr MenuEntry kArrange{0, "", &kArrangeMenu};

constexpr MenuEntry kChartEdit[] = {
    {ID_EDIT_UNDO},
    {ID_EDIT_REDO},
    kSeparator,
    {ID_DELETE},
    {ID_BRING_TO_FRONT},
    {ID_SEND_TO_BACK},
    {ID_REROUTE},
    kArrange,
    {ID_TIDY_UP},
    {ID_MOVE_CONTENTS},
    kSeparator,
    {ID_EDIT_CUT},
    {ID_EDIT_COPY},
    {ID_EDIT_PASTE},
    {ID_DUPLICATE},
    {ID_COPY_METAFILE},
    kSeparator,
    {ID_EDIT_SELECT_ALL},
    {ID_FIND_REPLACE},
    kSeparator,
    {ID_MODEL_PROPERTIES},
    {ID_DEFAULT_SETTINGS},
    {ID_PREFERENCES},
};

constexpr MenuEntry kInsert[] = {
    {ID_TOOL_STATE},
    {ID_TOOL_INITIAL_STATE},
    {ID_TOOL_FINAL_STATE},
    {ID_TOOL_NOTE},
    {ID_TOOL_LINE},
    {ID_TOOL_TRANSITION},
    kSeparator,
    {ID_CONNECT},
    {ID_CONNECT_TO},
};

constexpr MenuEntry kChartView[] = {
    {ID_REFRESH},      kSeparator,          {ID_ZOOM_IN},       {ID_ZOOM_NORMAL},     {ID_ZOOM_OUT},
    {ID_ZOOM_FIT},     {ID_ZOOM_SELECTION}, kSeparator,         {ID_OBJECT_BROWSER},  {ID_PROBLEMS},
    {ID_VIEW_TOOLBAR}, {ID_DRAWING_BAR},    {ID_CHART_BROWSER}, {ID_VIEW_STATUS_BAR},
};

constexpr MenuEntry kCodeGen[] = {
    {ID_CODEGEN_PROPERTIES}, {ID_GENERATE_CPP},  {ID_GENERATE_C},
    {ID_GENERATE_CSHARP},    {ID_GENERATE_JAVA}, {ID_GENERATE_XML},
};

constexpr MenuEntry kRun[] = {
    {ID_SIMULATE}, {ID_RUN_TESTS},    kSeparator,         {ID_RUN_RESTART},
    {ID_RUN_BACK}, {ID_RUN_FORWARD},  {ID_RUN_CONTINUE},  {ID_RUN_END},
    kSeparator,    {ID_REPLAY_TRACE}, {ID_REPLAY_PASTED}, {ID_FOLLOW_TRACE},
};

constexpr MenuEntry kWindow[] = {
    {ID_WINDOW_CASCADE},
    {ID_WINDOW_TILE},
    {ID_WINDOW_ARRANGE},
};

constexpr MenuPopup kStartMenu[] = {
    {"&File", kStartFile},
    {"&Edit", kStartEdit},
    {"&View", kStartView},
    {"&Help", kHelp},
};

constexpr MenuPopup kChartMenu[] = {
    {"&File", kChartFile},  {"&Edit", kChartEdit}, {"&Insert", kInsert}, {"&View", kChartView},
    {"&CodeGen", kCodeGen}, {"&Run", kRun},        {"&Window", kWindow}, {"&Help", kHelp},
};

constexpr unsigned kToolBar[] = {
    ID_FILE_NEW,
    ID_FILE_OPEN,
    ID_FILE_SAVE,
    ID_FILE_PRINT,
    0,
    ID_EDIT_CUT,
    ID_EDIT_COPY,
    ID_EDIT_PASTE,
    ID_COPY_METAFILE,
    ID_FIND_REPLACE,
    0,
    ID_EDIT_UNDO,
    ID_EDIT_REDO,
    0,
    ID_MODEL_PROPERTIES,
    ID_CODEGEN_PROPERTIES,
    ID_DEFAULT_SETTINGS,
    0,
    ID_POINTER,
    ID_REFRESH,
    0,
    ID_ZOOM_IN,
    ID_ZOOM_NORMAL,
    ID_ZOOM_OUT,
    0,
    ID_APP_ABOUT,
};

constexpr unsigned kDrawingBar[] = {
    ID_TOOL_STATE,
    ID_TOOL_TRANSITION,
    ID_TOOL_INITIAL_STATE,
    ID_TOOL_FINAL_STATE,
    ID_TOOL_NOTE,
    ID_TOOL_LINE,
    0,
    ID_DELETE,
    ID_BRING_TO_FRONT,
    ID_SEND_TO_BACK,
};

}  // namespace

std::span<const MenuPopup> StartMenu() { return kStartMenu; }

std::span<const MenuPopup> ChartMenu() { return kChartMenu; }

std::span<const MenuEntry> BarMenu() { return kStartView; }

std::string MenuText(const MenuEntry& entry) {
  if (entry.popup != nullptr) return Translate(entry.popup->title);
  const Command& command = FindCommand(entry.id);
  std::string text = Translate(entry.TextOf(command));
  if (!command.keys.empty()) text.append("\t").append(command.FirstKey());
  return text;
}

std::span<const unsigned> ToolBarButtons() { return kToolBar; }

std::span<const unsigned> DrawingBarButtons() { return kDrawingBar; }

}  // namespace morvane
