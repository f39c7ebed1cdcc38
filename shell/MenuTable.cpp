#include "shell/MenuTable.h"

#include <algorithm>

#include "persistence/RecentFiles.h"
#include "resources/CommandIds.h"

namespace {

constexpr MenuEntry kSeparator{0, ""};

constexpr MenuEntry kStartFile[] = {
    {ID_FILE_NEW, "&New\tCtrl+N"},
    {ID_FILE_OPEN, "&Open...\tCtrl+O"},
    kSeparator,
    {ID_FILE_PRINT_SETUP, "P&rint Setup..."},
    kSeparator,
    {ID_FILE_RECENT, "Recent File"},
    kSeparator,
    {ID_APP_EXIT, "E&xit"},
};

constexpr MenuEntry kStartEdit[] = {
    {ID_DEFAULT_SETTINGS, "Default Settings"},
    {ID_PREFERENCES, "Prefere&nces"},
};

constexpr MenuEntry kStartView[] = {
    {ID_VIEW_TOOLBAR, "&Toolbar"},
    {ID_DRAWING_BAR, "Drawing Toolbar"},
    {ID_CHART_BROWSER, "Chart Browser"},
    {ID_VIEW_STATUS_BAR, "&Status Bar"},
};

constexpr MenuEntry kHelp[] = {
    {ID_USER_GUIDE, "User Guide (PDF)"},
    {ID_TUTORIAL, "Tutorial (PDF)"},
    {ID_WEB_PAGE, "Morvane on Web"},
    {ID_APP_ABOUT, "&About Morvane..."},
};

constexpr MenuEntry kChartFile[] = {
    {ID_FILE_NEW, "&New\tCtrl+N"},
    {ID_FILE_OPEN, "&Open...\tCtrl+O"},
    kSeparator,
    {ID_FILE_SAVE, "&Save\tCtrl+S"},
    {ID_FILE_SAVE_AS, "Save &As..."},
    {ID_FILE_REVERT, "Rever&t"},
    kSeparator,
    {ID_FILE_CLOSE, "&Close"},
    {ID_CLOSE_ALL, "C&lose All"},
    kSeparator,
    {ID_FILE_PRINT, "&Print...\tCtrl+P"},
    {ID_FILE_PRINT_PREVIEW, "Print Pre&view"},
    {ID_FILE_PRINT_SETUP, "P&rint Setup..."},
    {ID_FILE_EXPORT, "&Export..."},
    kSeparator,
    {ID_FILE_RECENT, "Recent File"},
    kSeparator,
    {ID_APP_EXIT, "E&xit"},
};

constexpr MenuEntry kChartEdit[] = {
    {ID_EDIT_UNDO, "&Undo\tCtrl+Z"},
    {ID_EDIT_REDO, "&Redo\tCtrl+Y"},
    kSeparator,
    {ID_DELETE, "Delete\tCtrl+D"},
    {ID_BRING_TO_FRONT, "Bring to &front"},
    {ID_SEND_TO_BACK, "Send to &back"},
    kSeparator,
    {ID_EDIT_CUT, "Cu&t\tCtrl+X"},
    {ID_EDIT_COPY, "&Copy\tCtrl+C"},
    {ID_EDIT_PASTE, "&Paste\tCtrl+V"},
    {ID_COPY_METAFILE, "Copy As &Metafile\tCtrl+M"},
    kSeparator,
    {ID_EDIT_SELECT_ALL, "Select &All\tCtrl+A"},
    {ID_FIND_REPLACE, "&Find / Replace\tCtrl+F"},
    kSeparator,
    {ID_MODEL_PROPERTIES, "Model &Properties"},
    {ID_DEFAULT_SETTINGS, "&Default Settings"},
    {ID_PREFERENCES, "Prefere&nces"},
};

constexpr MenuEntry kInsert[] = {
    {ID_TOOL_STATE, "&State"},
    {ID_TOOL_INITIAL_STATE, "&Initial State"},
    {ID_TOOL_FINAL_STATE, "&Final State"},
    {ID_TOOL_NOTE, "&Note"},
    {ID_TOOL_LINE, "&Line"},
};

constexpr MenuEntry kChartView[] = {
    {ID_REFRESH, "&Refresh\tF5"},          kSeparator,
    {ID_ZOOM_IN, "Zoom &In\tF2"},          {ID_ZOOM_NORMAL, "Zoom &Normal\tF3"},
    {ID_ZOOM_OUT, "Zoom &Out\tF4"},        kSeparator,
    {ID_OBJECT_BROWSER, "Object Browser"}, {ID_VIEW_TOOLBAR, "&Toolbar"},
    {ID_DRAWING_BAR, "Drawing Toolbar"},   {ID_CHART_BROWSER, "Chart Browser"},
    {ID_VIEW_STATUS_BAR, "&Status Bar"},
};

constexpr MenuEntry kCodeGen[] = {
    {ID_CODEGEN_PROPERTIES, "&Properties"},   {ID_GENERATE_CPP, "Generate C++ File"},
    {ID_GENERATE_C, "Generate C File"},       {ID_GENERATE_CSHARP, "Generate C# File"},
    {ID_GENERATE_JAVA, "Generate Java File"}, {ID_GENERATE_XML, "Generate XML File"},
};

constexpr MenuEntry kWindow[] = {
    {ID_WINDOW_CASCADE, "&Cascade"},
    {ID_WINDOW_TILE, "&Tile"},
    {ID_WINDOW_ARRANGE, "&Arrange Icons"},
};

constexpr MenuPopup kStartMenu[] = {
    {"&File", kStartFile},
    {"&Edit", kStartEdit},
    {"&View", kStartView},
    {"&Help", kHelp},
};

constexpr MenuPopup kChartMenu[] = {
    {"&File", kChartFile},  {"&Edit", kChartEdit}, {"Insert", kInsert}, {"&View", kChartView},
    {"&CodeGen", kCodeGen}, {"&Window", kWindow},  {"&Help", kHelp},
};

constexpr Accelerator kAccelerators[] = {
    {"Ctrl+A", ID_EDIT_SELECT_ALL},
    {"Ctrl+C", ID_EDIT_COPY},
    {"Ctrl+D", ID_DELETE},
    {"Ctrl+F", ID_FIND_REPLACE},
    {"Ctrl+M", ID_COPY_METAFILE},
    {"Ctrl+N", ID_FILE_NEW},
    {"Ctrl+O", ID_FILE_OPEN},
    {"Ctrl+P", ID_FILE_PRINT},
    {"Ctrl+S", ID_FILE_SAVE},
    {"Ctrl+V", ID_EDIT_PASTE},
    {"Ctrl+X", ID_EDIT_CUT},
    {"Ctrl+Y", ID_EDIT_REDO},
    {"Ctrl+Z", ID_EDIT_UNDO},
    {"Alt+Backspace", ID_EDIT_UNDO},
    {"Shift+Delete", ID_EDIT_CUT},
    {"F2", ID_ZOOM_IN},
    {"F3", ID_ZOOM_NORMAL},
    {"F4", ID_ZOOM_OUT},
    {"F5", ID_REFRESH},
    {"F6", ID_NEXT_PANE},
    {"Shift+F6", ID_PREV_PANE},
    {"Ctrl+Insert", ID_EDIT_COPY},
    {"Shift+Insert", ID_EDIT_PASTE},
    {"Space", ID_FIND_REPLACE},
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

/// A prompt for the status line and, behind a line break, a tool tip.
struct Prompt {
  unsigned id;
  std::string_view text;
};

constexpr Prompt kPrompts[] = {
    {ID_FILE_NEW, "Create a new chart\nNew"},
    {ID_FILE_OPEN, "Open an existing chart\nOpen"},
    {ID_FILE_CLOSE, "Close the active chart\nClose"},
    {ID_FILE_SAVE, "Save the active chart\nSave"},
    {ID_FILE_SAVE_AS, "Save the active chart under a new name\nSave As"},
    {ID_FILE_REVERT, "Go back to the chart as it was saved last\nRevert"},
    {ID_CLOSE_ALL, "Close all charts\nClose All"},
    {ID_FILE_PRINT_SETUP, "Change the printer and its options\nPrint Setup"},
    {ID_FILE_PRINT, "Print the active chart\nPrint"},
    {ID_FILE_PRINT_PREVIEW, "Show the pages as they will be printed\nPrint Preview"},
    {ID_FILE_EXPORT, "Write a picture of the active chart to a file\nExport"},
    {ID_FILE_RECENT, "Open this chart"},
    {ID_APP_EXIT, "Quit the program; offers to save the charts\nExit"},
    {ID_EDIT_UNDO, "Undo the last change\nUndo"},
    {ID_EDIT_REDO, "Redo the change that was undone last\nRedo"},
    {ID_DELETE, "Delete selected objects from the chart\nDelete"},
    {ID_BRING_TO_FRONT, "Bring the selected objects in front of all others\nBring to front"},
    {ID_SEND_TO_BACK, "Send the selected objects behind all others\nSend to back"},
    {ID_EDIT_CUT, "Move the selected objects to the clipboard\nCut"},
    {ID_EDIT_COPY, "Copy the selected objects to the clipboard\nCopy"},
    {ID_EDIT_PASTE, "Insert the objects from the clipboard\nPaste"},
    {ID_COPY_METAFILE, "Copy the chart to the clipboard as a picture\nCopy As Metafile"},
    {ID_EDIT_SELECT_ALL, "Select all objects of the chart\nSelect All"},
    {ID_FIND_REPLACE, "Find and replace a text in the chart\nFind / Replace"},
    {ID_MODEL_PROPERTIES, "Show and change the properties of the model\nModel Properties"},
    {ID_DEFAULT_SETTINGS, "Change what new charts and objects look like\nDefault Settings"},
    {ID_PREFERENCES, "Choose the language, and what is reopened at the start\nPreferences"},
    {ID_POINTER, "Select and move objects\nPointer"},
    {ID_TOOL_STATE, "Insert a state\nState"},
    {ID_TOOL_TRANSITION, "Insert a transition\nTransition"},
    {ID_TOOL_INITIAL_STATE, "Insert an initial state\nInitial State"},
    {ID_TOOL_FINAL_STATE, "Insert a final state\nFinal State"},
    {ID_TOOL_NOTE, "Insert a note\nNote"},
    {ID_TOOL_LINE, "Insert a line\nLine"},
    {ID_REFRESH, "Paint the chart anew\nRefresh"},
    {ID_ZOOM_IN, "Zoom In\nZoom In"},
    {ID_ZOOM_NORMAL, "Show the chart at its normal size\nZoom Normal"},
    {ID_ZOOM_OUT, "Zoom Out\nZoom Out"},
    {ID_OBJECT_BROWSER, "Show or hide the object browser"},
    {ID_VIEW_TOOLBAR, "Show or hide the toolbar"},
    {ID_DRAWING_BAR, "Show or hide the drawing toolbar"},
    {ID_CHART_BROWSER, "Show or hide the chart browser"},
    {ID_VIEW_STATUS_BAR, "Show or hide the status bar"},
    {ID_CODEGEN_PROPERTIES,
     "Show and change the properties of code generation\nCodeGen Properties"},
    {ID_GENERATE_CPP, "Generate a C++ file from the chart\nGenerate C++ File"},
    {ID_GENERATE_C, "Generate a C file from the chart\nGenerate C File"},
    {ID_GENERATE_CSHARP, "Generate a C# file from the chart\nGenerate C# File"},
    {ID_GENERATE_JAVA, "Generate a Java file from the chart\nGenerate Java File"},
    {ID_GENERATE_XML, "Generate an XML file from the chart\nGenerate XML File"},
    {ID_WINDOW_CASCADE, "Arrange the windows so that they overlap\nCascade"},
    {ID_WINDOW_TILE, "Arrange the windows side by side\nTile"},
    {ID_WINDOW_ARRANGE, "Arrange the icons at the bottom of the window\nArrange Icons"},
    {ID_USER_GUIDE, "Open the user guide\nUser Guide"},
    {ID_TUTORIAL, "Open the tutorial\nTutorial"},
    {ID_WEB_PAGE,
     "Visit us on the web at https://morvane.halvern.example\nhttps://morvane.halvern.example"},
    {ID_APP_ABOUT, "Show the version of the program\nAbout"},
    {ID_NEXT_PANE, "Go to the next pane\nNext Pane"},
    {ID_PREV_PANE, "Go back to the previous pane\nPrevious Pane"},
};

std::string_view PromptText(unsigned id) {
  if (IsRecentFileCommand(id)) id = ID_FILE_RECENT;
  const auto* found = std::ranges::find(kPrompts, id, &Prompt::id);
  return found != std::end(kPrompts) ? found->text : std::string_view{};
}

}  // namespace

bool IsRecentFileCommand(unsigned id) {
  return id >= ID_FILE_RECENT && id < ID_FILE_RECENT + RecentFiles::kMaxEntries;
}

std::span<const MenuPopup> StartMenu() { return kStartMenu; }

std::span<const MenuPopup> ChartMenu() { return kChartMenu; }

std::span<const MenuEntry> BarMenu() { return kStartView; }

std::span<const Accelerator> Accelerators() { return kAccelerators; }

std::span<const unsigned> ToolBarButtons() { return kToolBar; }

std::span<const unsigned> DrawingBarButtons() { return kDrawingBar; }

std::string_view CommandPrompt(unsigned id) {
  const std::string_view text = PromptText(id);
  return text.substr(0, text.find('\n'));
}

std::string_view CommandToolTip(unsigned id) {
  const std::string_view text = PromptText(id);
  const std::size_t lineBreak = text.find('\n');
  return lineBreak == std::string_view::npos ? std::string_view{} : text.substr(lineBreak + 1);
}
