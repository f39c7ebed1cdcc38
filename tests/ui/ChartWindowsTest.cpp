#include "platform/qt/QtTreeCtrl.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "tests/ui/MainWindow.h"

namespace {

using Commands = std::set<unsigned>;

/// The main window over real charts.
class ChartWindows : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  void Expect(const char* mode, const Commands& enabled) {
    for (const unsigned id : kAll) {
      EXPECT_EQ(frame->StateOf(id).enabled, enabled.count(id) != 0) << mode << ", " << id;
    }
  }
  CDirTreeCtrl& Folders() { return frame->findChild<ChartBrowserPane*>()->Tree(); }
  std::string SelectedPath() { return Folders().PathOfItem(*Folders().Selected()); }

  const Commands kAlways{ID_FILE_NEW,     ID_FILE_OPEN,   ID_APP_EXIT,      ID_DEFAULT_SETTINGS,
                         ID_VIEW_TOOLBAR, ID_DRAWING_BAR, ID_CHART_BROWSER, ID_VIEW_STATUS_BAR,
                         ID_USER_GUIDE,   ID_TUTORIAL,    ID_WEB_PAGE,      ID_APP_ABOUT};
  const Commands kWithChart{ID_FILE_SAVE,
                            ID_FILE_SAVE_AS,
                            ID_FILE_CLOSE,
                            ID_CLOSE_ALL,
                            ID_COPY_METAFILE,
                            ID_FIND_REPLACE,
                            ID_MODEL_PROPERTIES,
                            ID_TOOL_STATE,
                            ID_TOOL_LINE,
                            ID_REFRESH,
                            ID_ZOOM_IN,
                            ID_ZOOM_OUT,
                            ID_OBJECT_BROWSER,
                            ID_GENERATE_CPP,
                            ID_GENERATE_XML,
                            ID_CODEGEN_PROPERTIES,
                            ID_WINDOW_CASCADE,
                            ID_WINDOW_TILE,
                            ID_WINDOW_ARRANGE,
                            ID_POINTER,
                            ID_FILE_PRINT,
                            ID_FILE_EXPORT,
                            ID_FILE_PRINT_PREVIEW,
                            ID_FILE_PRINT_SETUP};
  const Commands kWithSelection{ID_DELETE, ID_BRING_TO_FRONT, ID_SEND_TO_BACK, ID_EDIT_CUT,
                                ID_EDIT_COPY};
  Commands kAll{ID_EDIT_UNDO, ID_EDIT_REDO, ID_EDIT_PASTE, ID_EDIT_SELECT_ALL, ID_ZOOM_NORMAL};
};

TEST_F(ChartWindows, CommandsFollowWhatThereIsToDo) {
  for (const Commands& some : {kAlways, kWithChart, kWithSelection})
    kAll.insert(some.begin(), some.end());
  Expect("no chart", kAlways);

  LayoutMgr& chart = ViewOf(Open());
  Commands empty = kAlways;
  empty.insert(kWithChart.begin(), kWithChart.end());
  Expect("empty chart", empty);

  POINT place{100, 100};
  chart.GetModel().InsertGenericState(place);
  chart.TakeSnapshot();
  Commands drawn = empty;
  drawn.insert({ID_EDIT_UNDO, ID_EDIT_SELECT_ALL});
  Expect("a state", drawn);

  frame->RunCommand(ID_EDIT_SELECT_ALL);
  Commands selected = drawn;
  selected.insert(kWithSelection.begin(), kWithSelection.end());
  Expect("a selection", selected);

  frame->RunCommand(ID_TOOL_STATE);
  EXPECT_TRUE(IsChecked(ID_TOOL_STATE));
  Expect("a running tool", selected);
  frame->RunCommand(ID_POINTER);
  EXPECT_FALSE(IsChecked(ID_TOOL_STATE));
  Expect("the tool put away", drawn);

  frame->RunCommand(ID_EDIT_UNDO);
  Commands undone = empty;
  undone.insert(ID_EDIT_REDO);
  Expect("undone", undone);
  frame->Manager().CloseAllDocuments();
  Expect("closed again", kAlways);
}

TEST_F(ChartWindows, EachHasAnObjectBrowserOfItsChart) {
  Open();
  QWidget& first = frame->ActiveChild()->ObjectBrowser();
  POINT place{50, 50};
  ViewOf(Open()).GetModel().InsertInitialState(place);
  QApplication::processEvents();
  ObjectBrowserPane& second = frame->ActiveChild()->ObjectBrowser();
  const QAbstractItemModel& shown = *second.Window().model();
  EXPECT_EQ(shown.index(0, 0, shown.index(0, 0)).data().toString(), "InitialState");
  EXPECT_EQ(second.width(), 150);
  for (const bool hidden : {true, false}) {
    frame->RunCommand(ID_OBJECT_BROWSER);
    EXPECT_EQ(second.isHidden(), hidden);
    EXPECT_FALSE(first.isHidden());
    EXPECT_EQ(IsChecked(ID_OBJECT_BROWSER), !hidden);
  }
}

/// Settings that nothing can be stored in; the message about that lets the windows paint.
class FullProfile : public MemoryProfile, public MessageBoxes {
 public:
  void Write(const std::string&, const std::vector<Setting>&) override { ShowMessage("", MB_OK); }
  MessageAnswer Show(const std::string&, unsigned) override {
    QApplication::processEvents();
    ++shown;
    return MessageAnswer::Ok;
  }
  int shown = 0;
};

TEST_F(ChartWindows, AMessageAboutTheSettingsComesWhenTheChartIsThere) {
  FullProfile full;
  const UseService<Profile> settings(full);
  const UseService<MessageBoxes> messages(full);
  Open(MORVANE_SOURCE_DIR "/Examples/Lift/Lift.mrv");
  EXPECT_EQ(full.shown, 1);
}

TEST_F(ChartWindows, TheChartBrowserOpensChartsAndComesBackToItsFolder) {
  const TempFolder folder;
  profile.WriteString("ToolBars", "BrowseDir", folder.Root().string());
  Start();
  EXPECT_EQ(SelectedPath(), folder.Root().string());
  std::filesystem::create_directory(folder.Path("charts"));
  std::filesystem::copy(MORVANE_SOURCE_DIR "/Examples/Lift/Lift.mrv", folder.Path("charts"));
  Folders().SelectPath(folder.Path("charts"));
  Folders().Select(Folders().Selected()->FirstChild());
  Folders().OnLButtonDblClk();
  EXPECT_EQ(frame->windowTitle(), "Lift.mrv - Morvane");
  Folders().Select(Folders().Selected()->Parent());
  EXPECT_TRUE(frame->close());
  Start();
  EXPECT_EQ(SelectedPath(), folder.Path("charts"));
}

}  // namespace
