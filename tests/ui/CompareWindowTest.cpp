#include <QPointer>

#include "platform/Dialogs.h"
#include "resources/CommandIds.h"
#include "shell/qt/CompareWindow.h"
#include "shell/qt/DiffPictureView.h"
#include "tests/support/NestedLoop.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

/// Answers each dialog for opening with a path, or with Cancel where that is empty.
class OpenDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter&) override {
    NestedLoop::Run();
    return path.empty() ? std::nullopt : std::optional(path);
  }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string&) override {
    return {};
  }
  std::optional<ExportAnswer> AskExport(const ExportRequest&) override { return {}; }
  std::optional<COLORREF> AskColour(COLORREF) override { return {}; }
  std::optional<FontChoice> AskFont(const FontChoice&) override { return {}; }

  std::string path;

 private:
  const UseService<Dialogs> use{*this};
};

class CompareWindowTest : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  /// The window that comes when the active chart is compared with a file; null for none.
  CompareWindow* CompareWith(const std::string& path) {
    dialogs.path = path;
    EXPECT_TRUE(frame->StateOf(ID_FILE_COMPARE).enabled);
    frame->RunCommand(ID_FILE_COMPARE);
    QApplication::processEvents();
    return frame->findChild<CompareWindow*>();
  }
  std::string Write(const char* name, const std::string& records) {
    return folder.Write(name, ModelFile::ToDisk(ChartText(records)));
  }

  TempFolder folder;
  OpenDialogs dialogs;
};

TEST_F(CompareWindowTest, ShowsTheChartAsItIsBesideTheFileAndSelectsWhatIsChosen) {
  const std::string kept = StateRecord(1, {10, 4, 50, 14}, "Kept");
  const std::string old = Write("old.mrv", kept + StateRecord(2, {10, 20, 50, 30}, "Gone"));
  CDocument& document = Open(Write("new.mrv", kept + StateRecord(3, {300, 240, 340, 250}, "New")));
  LayoutMgr& chart = ViewOf(document);
  chart.GetProperties().Author = "Unsaved";
  chart.TakeSnapshot();
  const std::string text = chart.ModelText();

  CompareWindow* window = CompareWith(old);
  ASSERT_NE(window, nullptr);
  QTreeWidget& list = window->List();
  ASSERT_EQ(list.topLevelItemCount(), 3);
  EXPECT_EQ(list.topLevelItem(0)->text(0), "Chart");
  EXPECT_EQ(list.topLevelItem(0)->child(2)->text(0), "  +Unsaved");
  EXPECT_EQ(list.topLevelItem(1)->text(1), "added");
  EXPECT_EQ(list.topLevelItem(2)->text(0), "GenericState 2 \"Gone\"");

  const auto selected = [&chart] {
    std::vector<int> ids;
    for (const Shape* shape : chart.GetModel().SelectedShapes()) ids.push_back(shape->GetId());
    return ids;
  };
  const QImage before = window->View().grab().toImage();
  list.setCurrentItem(list.topLevelItem(1));
  EXPECT_EQ(selected(), std::vector{3});
  EXPECT_NE(window->View().grab().toImage(), before) << "the place is framed";
  window->View().ZoomIn();
  window->View().ZoomIn();
  window->View().ZoomIn();
  QScrollBar& across = *window->View().horizontalScrollBar();
  across.setValue(0);
  list.setCurrentItem(list.topLevelItem(2));
  EXPECT_EQ(selected(), std::vector{3}) << "what went is not in the chart";
  list.setCurrentItem(list.topLevelItem(1));
  EXPECT_GT(across.value(), 0) << "the picture scrolls to the place";
  EXPECT_EQ(chart.ModelText(), text);
}

TEST_F(CompareWindowTest, GoesWithItsChartAndLivesOnWithoutTheObject) {
  const std::string old = Write("old.mrv", "");
  CDocument& document = Open(Write("new.mrv", StateRecord(3, {10, 40, 50, 50}, "New")));
  const QPointer<CompareWindow> window = CompareWith(old);
  ASSERT_NE(window, nullptr);
  LayoutMgr& chart = ViewOf(document);
  chart.GetModel().SelectAll();
  chart.GetModel().DeleteSelected(false);
  window->List().setCurrentItem(window->List().topLevelItem(0));
  EXPECT_FALSE(window->View().grab().isNull());
  frame->Manager().CloseDocument(document);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
}

TEST_F(CompareWindowTest, NothingToShowIsAMessage) {
  const std::string path = Write("new.mrv", StateRecord(3, {10, 40, 50, 50}, "New"));
  EXPECT_FALSE(frame->StateOf(ID_FILE_COMPARE).enabled);
  Open(path);
  EXPECT_EQ(CompareWith(""), nullptr);
  boxes.Expect("The chart does not differ from new.mrv.");
  EXPECT_EQ(CompareWith(path), nullptr);
  const std::string bad = folder.Write("bad.mrv", "hello");
  boxes.Expect("Reason: Not a valid Morvane model file");
  EXPECT_EQ(CompareWith(bad), nullptr);
  boxes.Expect("Reason: Not a valid Morvane model file");
  frame->Manager().OpenDocumentFile(bad);
  EXPECT_EQ(boxes.Shown()[1], boxes.Shown()[2]) << "as opening says it";
}

}  // namespace

}  // namespace morvane
