#include "drawing/qt/QtText.h"
#include "platform/qt/QtDialogs.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

class ExportDialogTest : public testing::Test {
 protected:
  ExportDialogTest() {
    request.kinds = {{"PNG (*.png)", ".png"}, {"SVG (*.svg)", ".svg"}, {"PDF (*.pdf)", ".pdf"}};
    request.suggestion = folder.Path("Lift.v2.png");
  }
  /// The answer of the real dialog, with `act` carried out in it.
  std::optional<Dialogs::ExportAnswer> Ask(const std::function<void(QFileDialog&)>& act) const {
    QtDialogs dialogs;
    InNextWindow<QFileDialog>(act);
    return dialogs.AskExport(request);
  }
  static void Accept(QFileDialog& dialog) {
    SendKey(*dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  }

  TempFolder folder;
  Dialogs::ExportRequest request;
};

TEST_F(ExportDialogTest, TheNameDecidesAndElseTheChosenKind) {
  const struct {
    std::size_t kind;   ///< that the dialog starts from
    int steps;          ///< to another one, down its list
    const char* typed;  ///< null to leave what is proposed
    const char* file;
  } cases[] = {{0, 0, nullptr, "Lift.v2.png"}, {0, 1, nullptr, "Lift.v2.svg"},
               {1, 0, "new", "new.svg"},       {0, 2, "new", "new.pdf"},
               {1, 0, "new.PNG", "new.PNG"},   {0, 0, "new.gif", "new.gif"}};
  for (const auto& c : cases) {
    request.kind = c.kind;
    const auto answer = Ask([&](QFileDialog& dialog) {
      EXPECT_EQ(dialog.selectedNameFilter(), ToQString(request.kinds[c.kind].text));
      EXPECT_EQ(dialog.nameFilters().size(), 3);
      EXPECT_EQ(dialog.findChild<QCheckBox*>(), nullptr) << "nothing is selected";
      auto* kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
      for (int i = 0; i < c.steps; ++i) SendKey(*kinds, Qt::Key_Down);
      if (c.typed != nullptr) dialog.findChild<QLineEdit*>("fileNameEdit")->setText(c.typed);
      Accept(dialog);
    });
    ASSERT_TRUE(answer) << c.file;
    EXPECT_EQ(answer->path, folder.Path(c.file));
    EXPECT_FALSE(answer->selectionOnly);
  }
}

TEST_F(ExportDialogTest, OffersTheSelectionWhereThereIsOne) {
  request.hasSelection = true;
  for (const bool only : {true, false}) {
    const auto answer = Ask([&](QFileDialog& dialog) {
      auto* box = dialog.findChild<QCheckBox*>();
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->isVisible());
      EXPECT_FALSE(box->isChecked());
      if (only) box->click();
      Accept(dialog);
    });
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->selectionOnly, only);
  }
  EXPECT_FALSE(Ask([](QFileDialog& dialog) { SendKey(dialog, Qt::Key_Escape); }));
}

}  // namespace

}  // namespace morvane
