#include "model/ModelStream.h"
#include "platform/Dialog.h"
#include "platform/PopupMenus.h"
#include "shell/CObjectTree.h"
#include "tests/support/ChartTest.h"
#include "tests/support/OpenCharts.h"

namespace morvane {

// What a loop within an operation can meet: a chart that is read, replaced or closed meanwhile.

namespace {

/// Does something while a menu or a dialog is open, and then chooses.
class Meanwhile : public PopupMenus, public DialogHost {
 public:
  unsigned Track(const std::vector<Item>& /*items*/, POINT /*screen*/) override {
    act();
    return choice;
  }
  void Run(Dialog& dialog) override {
    act();
    for (const DialogControl& control : dialog.Controls()) {
      if (control.kind == DialogControl::Kind::MultiEdit) dialog.Control(control.id).text = "typed";
    }
    dialog.Click(IDOK);
  }

  std::function<void()> act;
  unsigned choice = 0;

 private:
  const UseService<PopupMenus> useMenus{*this};
  const UseService<DialogHost> useDialogs{*this};
};

/// A chart in a window, beside its tree.
class NestedLoops : public testing::Test {
 protected:
  NestedLoops() {
    chart.SetObjectTree(&tree);
    std::string reason;
    chart.OnInitialUpdate();
    EXPECT_TRUE(chart.ReplaceText(SmallChart(), reason));
  }
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (TreeItem* item = tree.FirstItem()->FirstChild(); item != nullptr; item = item->Next()) {
      rows.push_back(item->Text());
    }
    return rows;
  }
  std::size_t ObjectCount() const { return chart.GetModel().Objects().size(); }

  CObjectTree tree;
  LayoutMgr chart;
  FakeWindow window{chart};
  ScriptedMessageBoxes boxes;
  Meanwhile meanwhile;
  const POINT state{130, 185};
  const std::string other = ChartText(StateRecord(7, {1, 1, 20, 20}, "Other"));
};

TEST_F(NestedLoops, WhatCannotBeReadChangesNothing) {
  const std::string before = chart.ModelText();
  const std::vector<std::string> rows = Rows();
  const std::string whole =
      ChartText(StateRecord(7, {1, 1, 20, 20}, "Other", "text"), "9999 4 1", "9");
  for (std::size_t size = 0; size + 1 < whole.find("Untitled"); size += 3) {
    std::string reason;
    ASSERT_FALSE(chart.ReplaceText(whole.substr(0, size), reason)) << size;
    EXPECT_FALSE(reason.empty());
    EXPECT_EQ(chart.ModelText(), before) << size;
    EXPECT_EQ(Rows(), rows) << size;
  }
  EXPECT_FALSE(chart.OnCommand(ID_EDIT_REDO));
}

TEST_F(NestedLoops, WhatIsReadIsOutOfReachUntilItIsShown) {
  const std::size_t objects = ObjectCount();
  std::istringstream in(other);
  ModelStream stream(in);
  chart.Read(stream);
  NestedLoop::Run();
  EXPECT_EQ(ObjectCount(), objects);
  EXPECT_EQ(chart.GetModel().Find(7), nullptr);
  EXPECT_EQ(chart.ModelText(), other) << "it is the text of the chart all the same";
  chart.OnInitialUpdate();
  EXPECT_EQ(ObjectCount(), 1U);
  EXPECT_EQ(Rows(), std::vector<std::string>{"Other"});
}

TEST_F(NestedLoops, AMenuWhoseObjectWentDoesNothing) {
  std::string reason;
  meanwhile.act = [&] { EXPECT_TRUE(chart.ReplaceText(other, reason)); };
  for (const unsigned id : {ID_STATE_DELETE, ID_STATE_EDIT_TEXTS, ID_SEND_TO_BACK}) {
    EXPECT_TRUE(chart.ReplaceText(SmallChart(), reason));
    meanwhile.choice = id;
    chart.OnContextMenu(state);
    EXPECT_EQ(chart.ModelText(), other);
  }
}

TEST_F(NestedLoops, ADialogWhoseChartWentChangesNothing) {
  std::string reason;
  meanwhile.act = [&] { EXPECT_TRUE(chart.ReplaceText(other, reason)); };
  chart.OnLButtonDblClk(0, state);
  EXPECT_EQ(chart.ModelText(), other);
  EXPECT_EQ(Rows(), std::vector<std::string>{"Other"});
}

TEST_F(NestedLoops, AZoomIsNoStepAndKeepsWhatCanBeRedone) {
  chart.GetProperties().Author = "A";
  chart.TakeSnapshot();
  chart.OnCommand(ID_EDIT_UNDO);
  chart.OnCommand(ID_ZOOM_IN);
  window.Release(state);
  chart.OnLButtonDown(MK_LBUTTON, state);
  EXPECT_TRUE(chart.OnCommand(ID_EDIT_REDO));
  EXPECT_EQ(chart.GetProperties().Author, "A");
  EXPECT_TRUE(chart.OnCommand(ID_EDIT_UNDO));
  EXPECT_EQ(chart.GetZoom(), LayoutMgr::kNormalZoom + 1) << "it comes back with the step";
}

TEST_F(NestedLoops, AChartThatIsClosedUnderADialogLivesUntilItIsDone) {
  const TempFolder folder;
  OpenCharts charts(folder.Path("state"));
  LayoutMgr& view = OpenCharts::ViewOf(charts.New());
  std::string reason;
  EXPECT_TRUE(view.ReplaceText(SmallChart(), reason));
  meanwhile.act = [&] { charts.manager.CloseAllDocuments(); };
  view.OnLButtonDblClk(0, state);
  EXPECT_TRUE(charts.manager.Documents().empty());
}

}  // namespace

}  // namespace morvane
