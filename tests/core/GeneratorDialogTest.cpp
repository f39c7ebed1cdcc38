#include "codegen/CGenerateCppDlg.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Tools.h"
#include "tests/support/UiQueue.h"

namespace morvane {

namespace {

using Dlg = CGenerateCppDlg;

/// Lets a tool run in the dialog a few times, each time beside a box that shows what it writes.
class ToolUser : public GeneratorHost, public OutputBox {
 public:
  void Run(Dlg& dialog) override {
    dialog.SetOutputBox(this);
    const std::string& output = dialog.Control(Dlg::kOutputId).text;
    const auto generate = [&](const std::string& arguments, const std::string& end) {
      processes.instead = ToolLine(arguments);
      dialog.Click(Dlg::kGenerateId);
      return ui.RunUntil([&] { return output.ends_with(end); });
    };
    const std::string all = NumberedLines(0, 500'000);
    EXPECT_TRUE(generate("lines 500000", NumberedLines(499'999, 500'000)));
    EXPECT_EQ(output, all.substr(all.size() - Dlg::kBoxLimit));
    EXPECT_TRUE(generate("lines 1000", "999\n"));
    EXPECT_EQ(output, NumberedLines(0, 1000));
    EXPECT_EQ(shown, output);
    dialog.Click(IDCANCEL);
    dialog.SetOutputBox(nullptr);
    closed = true;
  }
  void Clear() override { shown.clear(); }
  void Append(std::string_view text) override { shown += text; }

  bool closed = false;

 private:
  std::string shown;
  UiQueue ui;
  TestProcesses processes;
  const UseService<GeneratorHost> use{*this};
};

TEST(GeneratorDialogTest, TheBoxShowsEachRunAloneAndTheNewestOfAFlood) {
  ToolUser user;
  Dlg dialog(GeneratorKind::Cpp);
  dialog.SetDesignFile("C:\\Work\\lift.mrv");
  EXPECT_FALSE(dialog.DoModal());
  EXPECT_EQ(dialog.Control(Dlg::kOutputFolderId).text, "C:\\Work");
  EXPECT_TRUE(user.closed);
}

}  // namespace

}  // namespace morvane
