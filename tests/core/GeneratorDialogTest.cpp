#include "codegen/CGenerateCppDlg.h"
#include "resources/InstallFolder.h"
#include "tests/support/ChartDocuments.h"
#include "tests/support/Tools.h"
#include "tests/support/UiQueue.h"

namespace {

using Dlg = CGenerateCppDlg;

/// Does with each dialog what the test says, and closes it.
class ScriptedGeneratorHost : public GeneratorHost, public OutputBox {
 public:
  void Run(Dlg& dialog) override {
    dialog.SetOutputBox(this);
    script(dialog);
    dialog.Click(IDCANCEL);
    dialog.SetOutputBox(nullptr);
  }
  void Clear() override { shown.clear(); }
  void Append(std::string_view text) override { shown += text; }

  std::function<void(Dlg&)> script;
  std::string shown;

 private:
  const UseService<GeneratorHost> use{*this};
};

class GeneratorDialogTest : public testing::Test {
 protected:
  static const std::string& Text(const Dlg& dialog, int id) { return dialog.Control(id).text; }
  void Show(GeneratorKind kind, const std::string& designFile, std::function<void(Dlg&)> script) {
    host.script = std::move(script);
    Dlg dialog(kind);
    dialog.SetDesignFile(designFile);
    EXPECT_FALSE(dialog.DoModal());
  }
  bool Generate(Dlg& dialog, const std::string& arguments, const std::string& end) {
    processes.instead = ToolLine(arguments);
    dialog.Click(Dlg::IDC_GENERATE);
    return ui.RunUntil([&] { return Text(dialog, Dlg::IDC_OUTPUT).ends_with(end); });
  }

  UiQueue ui;
  TestProcesses processes;
  ScriptedGeneratorHost host;
};

struct KindCase {
  GeneratorKind kind;
  unsigned command;
  const char* title;
  const char* tool;
  bool hasDebugInfo;
} const kKinds[] = {
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
    Show(c.kind, file, [&](Dlg& dialog) {
      EXPECT_EQ(dialog.Caption(), c.title);
      EXPECT_EQ(Text(dialog, Dlg::IDC_DESIGN_FILE), file);
      EXPECT_EQ(Text(dialog, Dlg::IDC_OUTPUT_FOLDER), "/home/My charts");
      DialogControl& debug = dialog.Control(Dlg::IDC_DEBUG);
      EXPECT_EQ(debug.checked, c.hasDebugInfo);
      EXPECT_EQ(debug.enabled, c.hasDebugInfo);
      dialog.Click(Dlg::IDC_GENERATE);
      debug.checked = !debug.checked;
      dialog.Click(Dlg::IDC_GENERATE);
    });
    const std::string start = GetInstallFolder() + "bin\\" + c.tool;
    EXPECT_EQ(processes.started,
              (std::vector{start + (c.hasDebugInfo ? "-g " : "") + file, start + file}));
    EXPECT_EQ(processes.slept.count(), 800);
  }
}

TEST_F(GeneratorDialogTest, TheBoxShowsEachRunAloneAndTheNewestOfAFlood) {
  Show(GeneratorKind::Cpp, "C:\\Work\\lift.mrv", [&](Dlg& dialog) {
    EXPECT_EQ(Text(dialog, Dlg::IDC_OUTPUT_FOLDER), "C:\\Work");
    const std::string& output = Text(dialog, Dlg::IDC_OUTPUT);
    const std::string all = NumberedLines(0, 500'000);
    ASSERT_TRUE(Generate(dialog, "lines 500000", NumberedLines(499'999, 500'000)));
    EXPECT_EQ(output, all.substr(all.size() - Dlg::kBoxLimit));
    ASSERT_TRUE(Generate(dialog, "lines 1000", "999\n"));
    EXPECT_EQ(output, NumberedLines(0, 1000));
    EXPECT_EQ(host.shown, output);
    processes.instead = "none";
    dialog.Click(Dlg::IDC_GENERATE);
    EXPECT_EQ(output, "Unable to start " + processes.started.back() + "\n");
    EXPECT_EQ(host.shown, output);
  });
}

/// The commands on charts that are saved or not.
class GeneratorCommandTest : public GeneratorDialogTest, protected ChartDocuments {
 protected:
  GeneratorCommandTest() {
    host.script = [this](Dlg& dialog) {
      opened = dialog.Caption() + ": " + Text(dialog, Dlg::IDC_DESIGN_FILE);
    };
  }
  /// Gives the command. The title and the file of the dialog that came; empty if none did.
  std::string Command(unsigned id = ID_GENERATE_CPP) {
    opened.clear();
    EXPECT_TRUE(View(document).OnUpdateCommand(id).enabled);
    EXPECT_TRUE(View(document).OnCommand(id));
    return opened;
  }

  CDocument* document = manager.NewDocument();
  std::string opened;
};

TEST_F(GeneratorCommandTest, AChartIsSavedFirst) {
  const std::string empty = "Empty model. Cannot generate file.";
  boxes.Expect(empty);
  EXPECT_EQ(Command(), "");
  EXPECT_EQ(boxes.LastFlags(), 0x10U);

  const std::string question =
      "The model has to be saved before proceeding.\n\n"
      "Press OK to save and continue, Cancel to abort this operation.";
  Change(document);
  boxes.Expect(question, MessageAnswer::Cancel);
  EXPECT_EQ(Command(), "");
  EXPECT_EQ(boxes.LastFlags(), 0x11U);

  boxes.Expect(question);
  dialogs.ExpectSave(std::nullopt);
  boxes.Expect(empty);
  EXPECT_EQ(Command(), "");

  const std::string path = folder.Path("lift.mrv");
  boxes.Expect(question);
  dialogs.ExpectSave(path);
  EXPECT_EQ(Command(), "C++ Code Generation: " + path);
  EXPECT_FALSE(document->IsModified());
  // Saved by now: no question, whichever the tool is.
  for (const KindCase& c : kKinds) EXPECT_EQ(Command(c.command), c.title + (": " + path));

  // A failed save of a chart with a name does not stop the run.
  const std::string gone = folder.Path("gone/lift.mrv");
  document->SetPathName(gone);
  Change(document);
  boxes.Expect(question);
  boxes.Expect("Unable to open for writing");
  EXPECT_EQ(Command(), "C++ Code Generation: " + gone);
}

}  // namespace
