#include "shell/FrameCommands.h"

#include <utility>

#include "dialogs/CDefaultSettingDlg.h"
#include "persistence/CDocument.h"
#include "persistence/DocumentManager.h"
#include "platform/Dialogs.h"
#include "resources/CommandIds.h"
#include "review/ChartComparison.h"
#include "shell/ChartCompare.h"
#include "shell/FrameActions.h"
#include "shell/HelpCommands.h"
#include "shell/ImportChart.h"
#include "shell/Preferences.h"

namespace morvane {

namespace {

// When a command can be given.

CommandState Always(const FrameActions& /*frame*/, unsigned /*id*/) {
  return CommandState::Enabled(true);
}

CommandState IfChart(const FrameActions& frame, unsigned /*id*/) {
  return CommandState::Enabled(frame.ActiveDocument() != nullptr);
}

CommandState IfRevertible(const FrameActions& frame, unsigned /*id*/) {
  const CDocument* document = frame.ActiveDocument();
  return CommandState::Enabled(document != nullptr && document->CanRevert());
}

CommandState IfListed(const FrameActions& frame, unsigned id) {
  return CommandState::Enabled(id - ID_FILE_RECENT < frame.RecentPaths().size());
}

CommandState WhetherShown(const FrameActions& frame, unsigned id) {
  return CommandState::Checked(frame.IsPartShown(id));
}

CommandState WhetherShownOfChart(const FrameActions& frame, unsigned id) {
  return frame.ActiveDocument() != nullptr ? WhetherShown(frame, id) : CommandState::Enabled(false);
}

CommandState OfRun(const FrameActions& frame, unsigned id) { return frame.RunStateOf(id); }

// What a command does.

void New(FrameActions& frame, unsigned /*id*/) { frame.Manager().NewDocument(); }

void Open(FrameActions& frame, unsigned /*id*/) { frame.Manager().OnFileOpen(); }

void Import(FrameActions& frame, unsigned /*id*/) { ImportChart(frame.Manager()); }

void OpenRecent(FrameActions& frame, unsigned id) {
  frame.Manager().OnOpenRecentFile(id - ID_FILE_RECENT);
}

void SaveAs(FrameActions& frame, unsigned /*id*/) { frame.ActiveDocument()->DoFileSaveAs(); }

void Revert(FrameActions& frame, unsigned /*id*/) { frame.ActiveDocument()->Revert(); }

void Compare(FrameActions& frame, unsigned /*id*/) {
  CDocument& document = *frame.ActiveDocument();
  const auto path = AskOpenPath(frame.Manager().Template().filter);
  if (!path) return;
  if (auto comparison = CompareWithFile(document, *path)) {
    frame.ShowComparison(document, *path, std::move(comparison));
  }
}

void Close(FrameActions& frame, unsigned /*id*/) { frame.CloseActive(); }

void CloseAll(FrameActions& frame, unsigned /*id*/) {
  DocumentManager& manager = frame.Manager();
  if (manager.SaveAllModified()) manager.CloseAllDocuments();
}

void Exit(FrameActions& frame, unsigned /*id*/) { frame.Exit(); }

void EditDefaults(FrameActions& /*frame*/, unsigned /*id*/) {
  CDefaultSettingDlg::Instance().ShowDialog();
}

void ChoosePreferences(FrameActions& /*frame*/, unsigned /*id*/) { EditPreferences(); }

void ShowOrHide(FrameActions& frame, unsigned id) { frame.ShowPart(id, !frame.IsPartShown(id)); }

void FocusPane(FrameActions& frame, unsigned id) { frame.FocusPane(id == ID_NEXT_PANE ? 1 : -1); }

void Arrange(FrameActions& frame, unsigned id) {
  using enum FrameActions::Arrangement;
  frame.ArrangeWindows(id == ID_WINDOW_CASCADE ? Cascade : id == ID_WINDOW_TILE ? Tile : Icons);
}

void ExecuteRun(FrameActions& frame, unsigned id) { frame.ExecuteRun(id); }

void ShowUserGuide(FrameActions& /*frame*/, unsigned /*id*/) { HelpCommands::ShowUserGuide(); }

void ShowTutorial(FrameActions& /*frame*/, unsigned /*id*/) { HelpCommands::ShowTutorial(); }

void ShowWebPage(FrameActions& /*frame*/, unsigned /*id*/) { HelpCommands::ShowWebPage(); }

void ShowAbout(FrameActions& frame, unsigned /*id*/) { frame.ShowAbout(); }

constexpr CommandRow<FrameActions> kRows[] = {
    {{ID_FILE_NEW, "&New", "Ctrl+N", "Create a new chart", "New", "new"}, Always, New},
    {{ID_FILE_OPEN, "&Open...", "Ctrl+O", "Open an existing chart", "Open", "open"}, Always, Open},
    {{ID_FILE_IMPORT, "&Import...", "", "Make a chart of an SCXML file", "Import"}, Always, Import},
    {{ID_FILE_SAVE_AS, "Save &As...", "", "Save the active chart under a new name", "Save As"},
     IfChart,
     SaveAs},
    {{ID_FILE_REVERT, "Rever&t", "", "Go back to the chart as it was saved last", "Revert"},
     IfRevertible,
     Revert},
    {{ID_FILE_COMPARE, "Compare &with...", "", "Show what differs from another chart file",
      "Compare"},
     IfChart,
     Compare},
    {{ID_FILE_CLOSE, "&Close", "", "Close the active chart", "Close"}, IfChart, Close},
    {{ID_CLOSE_ALL, "C&lose All", "", "Close all charts", "Close All"}, IfChart, CloseAll},
    {{ID_FILE_RECENT, "Recent File", "", "Open this chart", "", "", RecentFiles::kMaxEntries},
     IfListed,
     OpenRecent},
    {{ID_APP_EXIT, "E&xit", "Ctrl+Q", "Quit the program; offers to save the charts", "Exit"},
     Always,
     Exit},

    {{ID_DEFAULT_SETTINGS, "&Default Settings", "", "Change what new charts and objects look like",
      "Default Settings", "settings"},
     Always,
     EditDefaults},
    {{ID_PREFERENCES, "Prefere&nces", "", "Choose the language, and what is reopened at the start",
      "Preferences"},
     Always,
     ChoosePreferences},

    {{ID_OBJECT_BROWSER, "Object Browser", "", "Show or hide the object browser"},
     WhetherShownOfChart,
     ShowOrHide},
    {{ID_PROBLEMS, "&Problems", "", "Show or hide what is wrong with the chart"},
     WhetherShownOfChart,
     ShowOrHide},
    {{ID_VIEW_TOOLBAR, "&Toolbar", "", "Show or hide the toolbar"}, WhetherShown, ShowOrHide},
    {{ID_DRAWING_BAR, "Drawing Toolbar", "", "Show or hide the drawing toolbar"},
     WhetherShown,
     ShowOrHide},
    {{ID_CHART_BROWSER, "Chart Browser", "", "Show or hide the chart browser"},
     WhetherShown,
     ShowOrHide},
    {{ID_VIEW_STATUS_BAR, "&Status Bar", "", "Show or hide the status bar"},
     WhetherShown,
     ShowOrHide},
    {{ID_NEXT_PANE, "", "F6", "Go to the next pane", "Next Pane"}, IfChart, FocusPane},
    {{ID_PREV_PANE, "", "Shift+F6", "Go back to the previous pane", "Previous Pane"},
     IfChart,
     FocusPane},

    {{ID_SIMULATE, "&Simulate", "F9", "Run the chart and send it events, or end that", "Simulate"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_RESTART, "R&estart", "Ctrl+F9", "Begin the run anew", "From the Start"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_BACK, "Step &Back", "F7", "Go one step back in the run", "Step Back"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_FORWARD, "Step &Forward", "F8", "Go one step on in the run", "Step Forward"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_CONTINUE, "&Continue", "Ctrl+F8",
      "Go on to the next breakpoint or to the end of the run", "Continue"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_END, "E&nd Run", "", "End the run; the chart can be changed again", "End the Run"},
     OfRun,
     ExecuteRun},
    {{ID_REPLAY_TRACE, "&Replay Trace...", "", "Play a trace that generated code has written",
      "Replay Trace"},
     OfRun,
     ExecuteRun},
    {{ID_REPLAY_PASTED, "Replay &Pasted Trace", "", "Play a trace that is on the clipboard",
      "Replay Pasted Trace"},
     OfRun,
     ExecuteRun},
    {{ID_FOLLOW_TRACE, "F&ollow Trace...", "",
      "Show what a program writes to a file, as it goes on", "Follow Trace"},
     OfRun,
     ExecuteRun},
    {{ID_RUN_TESTS, "Run &Tests", "", "Run the tests that stand beside the chart", "Run Tests"},
     OfRun,
     ExecuteRun},

    {{ID_WINDOW_CASCADE, "&Cascade", "", "Arrange the windows so that they overlap", "Cascade"},
     IfChart,
     Arrange},
    {{ID_WINDOW_TILE, "&Tile", "", "Arrange the windows side by side", "Tile"}, IfChart, Arrange},
    {{ID_WINDOW_ARRANGE, "&Arrange Icons", "", "Arrange the icons at the bottom of the window",
      "Arrange Icons"},
     IfChart,
     Arrange},

    {{ID_USER_GUIDE, "User Guide (PDF)", "F1", "Open the user guide", "User Guide"},
     Always,
     ShowUserGuide},
    {{ID_TUTORIAL, "Tutorial (PDF)", "", "Open the tutorial", "Tutorial"}, Always, ShowTutorial},
    {{ID_WEB_PAGE, "Morvane on Web", "", "Visit us on the web at https://morvane.halvern.example",
      "https://morvane.halvern.example"},
     Always,
     ShowWebPage},
    {{ID_APP_ABOUT, "&About Morvane...", "", "Show the version of the program", "About", "about"},
     Always,
     ShowAbout},
};

}  // namespace

const CommandTable<FrameActions>& FrameCommands() {
  static constexpr CommandTable<FrameActions> table(kRows);
  return table;
}

}  // namespace morvane
