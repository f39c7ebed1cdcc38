#include <QCheckBox>
#include <QSpinBox>

#include "drawing/qt/QtText.h"
#include "platform/FileSystem.h"
#include "platform/qt/QtDialogs.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

class ExportDialogTest : public testing::Test {
 protected:
  ExportDialogTest() {
    request.kinds = {
        {"PNG (*.png)", ".png", true}, {"SVG (*.svg)", ".svg", true}, {"PDF (*.pdf)", ".pdf"}};
    request.suggestion = folder.Path("Lift.v2.png");
  }
  /// The answer of the real dialog, with `act` carried out in it.
  std::optional<Dialogs::ExportAnswer> Ask(const std::function<void(QFileDialog&)>& act) const {
    QtDialogs dialogs;
    InNextWindow<QFileDialog>(act);
    return dialogs.AskExport(request);
  }
  template <class Field>
  static Field& FieldCalled(QFileDialog& dialog, const char* text) {
    for (Field* field : dialog.findChildren<Field*>()) {
      if (field->text() == text) return *field;
    }
    ADD_FAILURE() << text;
    return *new Field(&dialog);
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
      EXPECT_TRUE(FieldCalled<QCheckBox>(dialog, "Selection &only").isHidden());
      EXPECT_EQ(FieldCalled<QCheckBox>(dialog, "&Transparent").isEnabled(), c.kind != 2);
      auto* kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
      for (int i = 0; i < c.steps; ++i) SendKey(*kinds, Qt::Key_Down);
      if (c.typed != nullptr) dialog.findChild<QLineEdit*>("fileNameEdit")->setText(c.typed);
      Accept(dialog);
    });
    ASSERT_TRUE(answer) << c.file;
    EXPECT_EQ(answer->path, AbsolutePath(folder.Path(c.file)));
    EXPECT_FALSE(answer->options.selectionOnly);
    EXPECT_EQ(answer->options.scale, 1);
    EXPECT_FALSE(answer->options.margin);
  }
}

TEST_F(ExportDialogTest, OffersTheSelectionWhereThereIsOne) {
  request.hasSelection = true;
  for (const bool only : {true, false}) {
    const auto answer = Ask([&](QFileDialog& dialog) {
      auto& box = FieldCalled<QCheckBox>(dialog, "Selection &only");
      EXPECT_TRUE(box.isVisible());
      EXPECT_FALSE(box.isChecked());
      if (only) box.click();
      Accept(dialog);
    });
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->options.selectionOnly, only);
  }
  EXPECT_FALSE(Ask([](QFileDialog& dialog) { SendKey(dialog, Qt::Key_Escape); }));
}

TEST_F(ExportDialogTest, ScaleMarginAndGroundAreAsked) {
  request.options = {.scale = 0.5, .transparent = true};
  const auto answer = Ask([&](QFileDialog& dialog) {
    const auto numbers = dialog.findChildren<QSpinBox*>();
    ASSERT_EQ(numbers.size(), 2);
    EXPECT_EQ(numbers[0]->value(), 50);
    EXPECT_FALSE(numbers[1]->isEnabled());
    numbers[0]->setValue(250);
    FieldCalled<QCheckBox>(dialog, "&Crop to drawing").click();
    EXPECT_TRUE(numbers[1]->isEnabled());
    numbers[1]->setValue(7);
    FieldCalled<QCheckBox>(dialog, "&Transparent").click();
    Accept(dialog);
  });
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->options.scale, 2.5);
  EXPECT_FALSE(answer->options.transparent);
  EXPECT_EQ(answer->options.margin, 7);
}

}  // namespace

}  // namespace morvane
