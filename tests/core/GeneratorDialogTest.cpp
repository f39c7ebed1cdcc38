#include "codegen/CGenerateCppDlg.h"
#include "platform/ShellOpen.h"
#include "tests/support/ChartTest.h"
#include "tests/support/OpenCharts.h"
#include "tests/support/TestSystem.h"
#include "tests/support/Tools.h"
#include "tests/support/UiQueue.h"

namespace morvane {

namespace {

using Dlg = CGenerateCppDlg;

/// Does in a dialog what a test says.
class StepUser : public GeneratorHost {
 public:
  explicit StepUser(std::function<void(Dlg&)> steps) : steps(std::move(steps)) {}
  void Run(Dlg& dialog) override {
    steps(dialog);
    dialog.Click(IDCANCEL);
  }

 private:
  std::function<void(Dlg&)> steps;
  const UseService<GeneratorHost> use{*this};
};

TEST(GeneratorDialogTest, TellsWhatRunsAndHowItEnds) {
  const std::pair<const char*, std::string> cases[] = {
      {"exit 0", "Finished"},
      {"exit 1", "Failed with exit code 1"},
      {"signal 9", "Ended by signal " + DeathBy(9)}};
  UiQueue ui;
  TestProcesses processes;
  const StepUser user([&](Dlg& dialog) {
    const std::string& status = dialog.Control(Dlg::kStatusId).text;
    const std::string& command = dialog.Control(Dlg::kCommandId).text;
    EXPECT_EQ(status, "Not started yet");
    EXPECT_EQ(command, "");
    for (const auto& [tool, end] : cases) {
      processes.instead = ToolLine(tool);
      dialog.Click(Dlg::kGenerateId);
      EXPECT_EQ(status, "Running...");
      EXPECT_EQ(command, processes.started.back());
      EXPECT_TRUE(ui.RunUntil([&] { return status != "Running..."; }));
      EXPECT_EQ(status, end);
      EXPECT_EQ(dialog.Control(Dlg::kOutputId).text, "") << "the box is the tool's alone";
    }
    processes.instead = "none";
    dialog.Click(Dlg::kGenerateId);
    EXPECT_EQ(status, "Could not be started");
    EXPECT_EQ(command, processes.started.back());
  });
  Dlg dialog(GeneratorKind::Cpp);
  dialog.SetDesignFile("/charts/lift.mrv");
  dialog.DoModal();
  EXPECT_EQ(processes.started.size(), 4U);
}

/// Notes what shall be opened, and answers as a test says.
struct ScriptedShell : public ShellOpen {
  OpenResult OpenFile(const std::string& path) override {
    opened.push_back(path);
    return result;
  }
  OpenResult OpenWeb(const std::string&) override { return OpenResult::Failed; }

  std::vector<std::string> opened;
  OpenResult result = OpenResult::Opened;
  const UseService<ShellOpen> use{*this};
};

TEST(GeneratorDialogTest, OpensTheOutputFolderOrSaysWhyNot) {
  const std::pair<OpenResult, const char*> cases[] = {
      {OpenResult::Opened, nullptr},
      {OpenResult::NotFound, "The folder /charts is not there."},
      {OpenResult::NoProgram, "The folder /charts cannot be shown: there is no program for that."},
      {OpenResult::Failed, "The folder /charts cannot be shown: there is no program for that."}};
  ScriptedShell shell;
  ScriptedMessageBoxes boxes;
  const StepUser user([&](Dlg& dialog) {
    for (const auto& [result, message] : cases) {
      shell.result = result;
      if (message != nullptr) boxes.Expect(message);
      dialog.Click(Dlg::kOpenFolderId);
    }
  });
  Dlg dialog(GeneratorKind::Cpp);
  dialog.SetDesignFile("/charts/lift.mrv");
  dialog.DoModal();
  EXPECT_EQ(shell.opened, std::vector<std::string>(4, "/charts"));
  EXPECT_EQ(boxes.Shown().size(), 3U);
}

/// Runs the dialog of a chart with two states, one far off, and a transition between them.
class GeneratorLinkTest : public testing::Test {
 protected:
  void Run(std::function<void(Dlg&)> steps) {
    const StepUser user(std::move(steps));
    DialogGenerators().Run(ID_GENERATE_CPP, view);
  }
  /// The ids of what is selected.
  std::string Selected() const {
    std::string ids;
    for (const Shape* shape : view.GetModel().Objects()) {
      if (shape->IsInSelection()) ids += std::to_string(shape->GetId()) + " ";
    }
    return ids;
  }
  /// A message that names no object, about the line where a record begins.
  std::string MessageAt(const std::string& begin) const {
    const auto line =
        std::count(text.begin(), text.begin() + std::ptrdiff_t(text.find(begin)), '\n');
    return "Two.mrv:" + std::to_string(line + 1) + ": error: it is odd";
  }

  TempFolder folder;
  const std::string text =
      ChartText(StateRecord(101, {10, 10, 40, 30}, "A") +
                StateRecord(102, {1000, 1200, 1040, 1230}, "B") + TransitionRecord(103, 101, 102));
  OpenCharts charts{folder.Path("store")};
  CMorvaneDoc& document = charts.Open(folder.Write("Two.mrv", ModelFile::ToDisk(text)));
  LayoutMgr& view = OpenCharts::ViewOf(document);
  FakeWindow window{view};
  ScriptedMessageBoxes boxes;
};

TEST_F(GeneratorLinkTest, AMessageAboutWhatIsGoneSaysSo) {
  Run([this](Dlg& dialog) {
    const auto expectGone = [&](const std::string& message) {
      boxes.Expect("no longer on the chart");
      dialog.FollowLine(message);
      EXPECT_EQ(Selected(), "") << message;
    };
    expectGone("Two.mrv:1: error: GenericState 103 is a transition");
    expectGone("Two.mrv:1: error: GenericState 999");
    expectGone("Two.mrv:9999: error: it is odd");
    const std::string ofState = MessageAt("BEGIN GenericState 102");
    delete FindShape(view, 102);
    expectGone("Two.mrv:1: error: GenericState 102");
    expectGone(ofState);
    std::filesystem::remove(document.GetPathName());
    expectGone(MessageAt("BEGIN GenericState 101"));
    dialog.FollowLine("Two.mrv:1: error: GenericState 101");
    EXPECT_EQ(Selected(), "101 ") << "the file isn't needed";
    view.GetModel().DeselectAll();
    charts.manager.CloseDocument(document);
    expectGone("Two.mrv:1: error: GenericState 101");
  });
  EXPECT_EQ(boxes.Shown().size(), 7U);
}

}  // namespace

}  // namespace morvane
