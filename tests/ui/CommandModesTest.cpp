#include "shell/qt/CMainFrame.h"
#include "tests/ui/WindowTest.h"

namespace {

using Commands = std::set<unsigned>;

/// The real main window over real charts: which commands can be given in which state.
class CommandModesTest : public testing::Test {
 protected:
  CommandModesTest() {
    frame = std::make_unique<CMainFrame>(
        CMainFrame::Factories{[] { return std::make_unique<CMorvaneDoc>(); },
                              [] { return std::make_unique<LayoutMgr>(); }});
    frame->show();
    QApplication::processEvents();
  }
  ~CommandModesTest() override {
    frame->Manager().CloseAllDocuments();
    frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  LayoutMgr& NewChart() {
    CDocument* document = frame->Manager().NewDocument();
    QApplication::processEvents();
    return dynamic_cast<LayoutMgr&>(*document->GetView());
  }

  void Expect(const char* mode, const Commands& enabled) {
    for (const unsigned id : kAll) {
      EXPECT_EQ(frame->StateOf(id).enabled, enabled.count(id) != 0) << mode << ", " << id;
    }
  }

  /// The commands of menus and bars.
  const Commands kAll{
      ID_FILE_NEW,         ID_FILE_OPEN,     ID_FILE_SAVE,        ID_FILE_SAVE_AS,
      ID_FILE_CLOSE,       ID_CLOSE_ALL,     ID_APP_EXIT,         ID_EDIT_UNDO,
      ID_EDIT_REDO,        ID_DELETE,        ID_BRING_TO_FRONT,   ID_SEND_TO_BACK,
      ID_EDIT_CUT,         ID_EDIT_COPY,     ID_EDIT_PASTE,       ID_COPY_METAFILE,
      ID_EDIT_SELECT_ALL,  ID_FIND_REPLACE,  ID_MODEL_PROPERTIES, ID_DEFAULT_SETTINGS,
      ID_TOOL_STATE,       ID_TOOL_LINE,     ID_REFRESH,          ID_ZOOM_IN,
      ID_ZOOM_NORMAL,      ID_ZOOM_OUT,      ID_OBJECT_BROWSER,   ID_VIEW_TOOLBAR,
      ID_DRAWING_BAR,      ID_CHART_BROWSER, ID_VIEW_STATUS_BAR,  ID_CODEGEN_PROPERTIES,
      ID_GENERATE_CPP,     ID_GENERATE_XML,  ID_WINDOW_CASCADE,   ID_WINDOW_TILE,
      ID_WINDOW_ARRANGE,   ID_USER_GUIDE,    ID_TUTORIAL,         ID_WEB_PAGE,
      ID_APP_ABOUT,        ID_POINTER,       ID_FILE_PRINT,       ID_FILE_PRINT_PREVIEW,
      ID_FILE_PRINT_SETUP, ID_FILE_EXPORT};
  const Commands kAlways{ID_FILE_NEW,     ID_FILE_OPEN,   ID_APP_EXIT,      ID_DEFAULT_SETTINGS,
                         ID_VIEW_TOOLBAR, ID_DRAWING_BAR, ID_CHART_BROWSER, ID_VIEW_STATUS_BAR,
                         ID_USER_GUIDE,   ID_TUTORIAL,    ID_WEB_PAGE,      ID_APP_ABOUT};

  MemoryProfile profile;
  const UseService<Profile> use{profile};
  std::unique_ptr<CMainFrame> frame;
};

Commands Without(Commands all, std::initializer_list<unsigned> some) {
  for (const unsigned id : some) all.erase(id);
  return all;
}

TEST_F(CommandModesTest, FollowWhatThereIsToDo) {
  Expect("no chart", kAlways);

  LayoutMgr& chart = NewChart();
  const Commands empty =
      Without(kAll, {ID_EDIT_UNDO, ID_EDIT_REDO, ID_DELETE, ID_BRING_TO_FRONT, ID_SEND_TO_BACK,
                     ID_EDIT_CUT, ID_EDIT_COPY, ID_EDIT_PASTE, ID_EDIT_SELECT_ALL, ID_ZOOM_NORMAL});
  Expect("empty chart", empty);

  POINT place{100, 100};
  chart.GetModel().InsertGenericState(place);
  chart.TakeSnapshot();
  Commands drawn = empty;
  drawn.insert({ID_EDIT_UNDO, ID_EDIT_SELECT_ALL});
  Expect("a state", drawn);

  frame->RunCommand(ID_EDIT_SELECT_ALL);
  Commands selected = drawn;
  selected.insert({ID_DELETE, ID_BRING_TO_FRONT, ID_SEND_TO_BACK, ID_EDIT_CUT, ID_EDIT_COPY});
  Expect("a selection", selected);

  frame->RunCommand(ID_TOOL_STATE);
  EXPECT_TRUE(frame->StateOf(ID_TOOL_STATE).checked);
  Expect("a running tool", selected);
  frame->RunCommand(ID_POINTER);
  EXPECT_FALSE(frame->StateOf(ID_TOOL_STATE).checked);
  Expect("the tool put away", drawn);

  frame->RunCommand(ID_EDIT_UNDO);
  Commands undone = empty;
  undone.insert(ID_EDIT_REDO);
  Expect("undone", undone);

  frame->Manager().CloseAllDocuments();
  Expect("closed again", kAlways);
}

}  // namespace
