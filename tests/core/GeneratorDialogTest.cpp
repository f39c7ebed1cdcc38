#include "codegen/CGenerateCppDlg.h"
#include "platform/CDocManager.h"
#include "resources/InstallFolder.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Tools.h"
#include "tests/support/UiQueue.h"

namespace {

/// Does with each dialog what the test says, and closes it.
class ScriptedGeneratorHost : public GeneratorHost, public OutputBox {
 public:
  void Run(CGenerateCppDlg& dialog) override {
    dialog.SetOutputBox(this);
    if (script) script(dialog);
    dialog.Click(IDCANCEL);
    dialog.SetOutputBox(nullptr);
  }
  void Clear() override { shown.clear(); }
  void Append(std::string_view text) override { shown += text; }

  std::function<void(CGenerateCppDlg&)> script;
  std::string shown;

 private:
  const UseService<GeneratorHost> use{*this};
};

class NoFrames : public FrameHost {
 public:
  void CreateFrame(CDocument&) override {}
  void ShowFrame(CDocument&) override {}
  void ActivateFrame(CDocument&) override {}
  void CloseFrame(CDocument&) override {}
  void UpdateTitle(CDocument&) override {}
};

class GeneratorDialogTest : public testing::Test {
 protected:
  static const std::string& Output(const CGenerateCppDlg& dialog) {
    return dialog.Control(CGenerateCppDlg::IDC_OUTPUT).text;
  }
  void Show(GeneratorKind kind, const std::string& designFile,
            std::function<void(CGenerateCppDlg&)> script) {
    host.script = std::move(script);
    CGenerateCppDlg dialog(kind);
    dialog.SetDesignFile(designFile);
    EXPECT_FALSE(dialog.DoModal());
  }
  bool Generate(CGenerateCppDlg& dialog, const std::string& arguments, const std::string& end) {
    processes.instead = ToolLine(arguments);
    dialog.Click(CGenerateCppDlg::IDC_GENERATE);
    return ui.RunUntil([&] { return Output(dialog).ends_with(end); });
  }

  UiQueue ui;
  TestProcesses processes;
  ScriptedGeneratorHost host;
};

struct KindCase {
  GeneratorKind kind;
  unsigned command;
  const char* title;
  std::string tool;
  bool hasDebugInfo;
};

const KindCase kKinds[] = {
    {GeneratorKind::Cpp, 32886, "C++ Code Generation", "mrv2cpp.exe -d ", true},
    {GeneratorKind::C, 32887, "ANSI C Code Generation", "mrv2c.exe -d ", true},
    {GeneratorKind::CSharp, 32888, "C# (.Net) Code Generation", "mrv2cs.exe -d ", true},
    {GeneratorKind::Java, 32889, "Java Code Generation", "mrv2java.exe -d ", true},
    {GeneratorKind::Xml, 32890, "XML Generation", "mrv2xml.exe -d ", false}};

TEST_F(GeneratorDialogTest, EachKindHasItsTitleItsDebugBoxAndItsCommandLine) {
  const std::string file = "/home/My charts/lift.mrv";
  processes.instead = ToolLine("echo");
  for (const KindCase& c : kKinds) {
    processes.started.clear();
    processes.slept = {};
    Show(c.kind, file, [&](CGenerateCppDlg& dialog) {
      EXPECT_EQ(dialog.Caption(), c.title);
      EXPECT_EQ(dialog.Control(CGenerateCppDlg::IDC_DESIGN_FILE).text, file);
      EXPECT_EQ(dialog.Control(CGenerateCppDlg::IDC_OUTPUT_FOLDER).text, "/home/My charts");
      DialogControl& debug = dialog.Control(CGenerateCppDlg::IDC_DEBUG);
      EXPECT_EQ(debug.checked, c.hasDebugInfo);
      EXPECT_EQ(debug.enabled, c.hasDebugInfo);
      dialog.Click(CGenerateCppDlg::IDC_GENERATE);
      debug.checked = !debug.checked;
      dialog.Click(CGenerateCppDlg::IDC_GENERATE);
    });
    const std::string start = GetInstallFolder() + "bin\\" + c.tool;
    EXPECT_EQ(processes.started,
              (std::vector{start + (c.hasDebugInfo ? "-g " : "") + file, start + file}));
    EXPECT_EQ(processes.slept.count(), 800);
  }
}

TEST_F(GeneratorDialogTest, TheBoxShowsEachRunAlone) {
  Show(GeneratorKind::Cpp, "C:\\Work\\lift.mrv", [&](CGenerateCppDlg& dialog) {
    EXPECT_EQ(dialog.Control(CGenerateCppDlg::IDC_OUTPUT_FOLDER).text, "C:\\Work");
    for (int i = 0; i < 2; ++i) {
      ASSERT_TRUE(Generate(dialog, "lines 1000", "999\n"));
      EXPECT_EQ(Output(dialog), NumberedLines(0, 1000));
      EXPECT_EQ(host.shown, Output(dialog));
    }
    processes.instead = "none";
    dialog.Click(CGenerateCppDlg::IDC_GENERATE);
    EXPECT_EQ(Output(dialog), "Unable to start " + processes.started.back() + "\n");
    EXPECT_EQ(host.shown, Output(dialog));
  });
}

TEST_F(GeneratorDialogTest, TheBoxKeepsTheNewestOfAFlood) {
  constexpr long count = 500'000;
  Show(GeneratorKind::Cpp, "/lift.mrv", [&](CGenerateCppDlg& dialog) {
    ASSERT_TRUE(Generate(dialog, "lines 500000", NumberedLines(count - 1, count)));
    const std::string all = NumberedLines(0, count);
    EXPECT_EQ(Output(dialog), all.substr(all.size() - CGenerateCppDlg::kBoxLimit));
  });
}

/// The commands on charts that are saved or not.
class GeneratorCommandTest : public GeneratorDialogTest {
 protected:
  GeneratorCommandTest() {
    host.script = [this](CGenerateCppDlg& dialog) {
      shown = dialog.Caption() + ": " + dialog.Control(CGenerateCppDlg::IDC_DESIGN_FILE).text;
    };
  }

  LayoutMgr& View() { return dynamic_cast<LayoutMgr&>(*document->GetView()); }
  void Change() { View().GetProperties().Author += "!"; }
  /// Gives the command. The title and the file of the dialog that came; empty if none did.
  std::string Command(unsigned id = ID_GENERATE_CPP) {
    shown.clear();
    EXPECT_TRUE(View().OnUpdateCommand(id).enabled);
    EXPECT_TRUE(View().OnCommand(id));
    return shown;
  }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  NoFrames frames;
  CDocManager manager{{"", {}, std::make_unique<CMorvaneDoc>, std::make_unique<LayoutMgr>}, frames};
  CDocument* document = manager.NewDocument();
  std::string shown;
};

TEST_F(GeneratorCommandTest, AChartIsSavedFirst) {
  boxes.Expect("Empty model. Cannot generate file.");
  EXPECT_EQ(Command(), "");
  EXPECT_EQ(boxes.LastFlags(), 0x10U);

  const std::string question =
      "The model has to be saved before proceeding.\n\n"
      "Press OK to save and continue, Cancel to abort this operation.";
  Change();
  boxes.Expect(question, MessageAnswer::Cancel);
  EXPECT_EQ(Command(), "");
  EXPECT_EQ(boxes.LastFlags(), 0x11U);

  boxes.Expect(question, MessageAnswer::Ok);
  dialogs.ExpectSave(std::nullopt);
  boxes.Expect("Empty model. Cannot generate file.");
  EXPECT_EQ(Command(), "");

  const std::string path = folder.Path("lift.mrv");
  boxes.Expect(question, MessageAnswer::Ok);
  dialogs.ExpectSave(path);
  EXPECT_EQ(Command(), "C++ Code Generation: " + path);
  EXPECT_FALSE(document->IsModified());

  // Saved by now: no question, whichever the tool is.
  for (const KindCase& c : kKinds) EXPECT_EQ(Command(c.command), c.title + (": " + path));
}

TEST_F(GeneratorCommandTest, AFailedSaveOfANamedChartDoesNotStopTheRun) {
  const std::string path = folder.Path("gone/lift.mrv");
  document->SetPathName(path);
  Change();
  boxes.Expect("has to be saved", MessageAnswer::Ok);
  boxes.Expect("Unable to open for writing");
  EXPECT_EQ(Command(), "C++ Code Generation: " + path);
}

}  // namespace
