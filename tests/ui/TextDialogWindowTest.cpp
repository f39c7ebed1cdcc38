#include "dialogs/CEventEditor.h"
#include "dialogs/EntryExitEditor.h"
#include "tests/ui/OpenDialog.h"
#include "tests/ui/WindowTest.h"

// Texts on their way through a real window.

namespace {

using namespace std::string_literals;

void PasteInto(QWidget* box, const QString& text) {
  QApplication::clipboard()->setText(text);
  QMetaObject::invokeMethod(box, "paste");
}

TEST(TextDialogWindow, UntouchedBytesGoBackAndTypedTextIsUtf8) {
  OpenDialog open;
  const std::string odd[] = {"caf\xE9 \x80",
                             "a\nb\r\nc\rd",
                             "nul\0tail"s,
                             "\x01\x1A\x7F\t\x0B\x0C",
                             "nbsp\xC2\xA0\xE2\x80\xA8",
                             "\xEF\xB7\x90\xEF\xBF\xBC",
                             ""};
  for (const std::string& bytes : odd) {
    EntryExitEditor editor;
    editor.entry = bytes;
    editor.exit = bytes;
    EXPECT_TRUE(open.Run(editor, [](QtDialogWindow& window) {
      window.FocusOn(EntryExitEditor::IDC_EXIT);
      OpenDialog::Key(Qt::Key_A, "a", Qt::ControlModifier);
      OpenDialog::Type(QString::fromUtf8("é"));
      OpenDialog::Key(Qt::Key_Return, "\r");
      OpenDialog::Type("2");
      OpenDialog::Find<QWidget>(window, IDOK)->setFocus();
      OpenDialog::Key(Qt::Key_Return, "\r");
    }));
    EXPECT_EQ(editor.entry, bytes);
    EXPECT_EQ(editor.exit, "\xC3\xA9\r\n2");
  }
}

TEST(TextDialogWindow, EditedTextKeepsWhatItHeld) {
  OpenDialog open;
  EntryExitEditor editor;
  editor.entry = "caf\xE9\n\x01 nul\0 nbsp\t"s;
  editor.exit = "x\xC2\xA0\xE2\x80\xA8y\r\n\r\n";
  open.Run(editor, [](QtDialogWindow& window) {
    for (const int id : {EntryExitEditor::IDC_ENTRY, EntryExitEditor::IDC_EXIT}) {
      window.FocusOn(id);
      OpenDialog::Type("!");
    }
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  });
  EXPECT_EQ(editor.entry, "!caf\xC3\xA9\r\n\x01 nul\0 nbsp\t"s);
  EXPECT_EQ(editor.exit, "!x\xC2\xA0\xE2\x80\xA8y\r\n\r\n");
}

TEST(TextDialogWindow, OneLineStaysOneLine) {
  OpenDialog open;
  CEventEditor editor;
  editor.guard = "caf\xE9";
  EXPECT_TRUE(open.Run(editor, [](QtDialogWindow& window) {
    auto* event = OpenDialog::Find<QLineEdit>(window, CEventEditor::IDC_EVENT);
    EXPECT_EQ(event->selectedText(), "-Edit-") << "typing replaces it";
    PasteInto(event, "a\nb\r\nc");
    EXPECT_EQ(event->cursorPosition(), 5);
    PasteInto(event, QString(50000, 'x'));
    OpenDialog::Key(Qt::Key_Return, "\r");
  }));
  EXPECT_EQ(editor.event, "a b c" + std::string(50000, 'x'));
  EXPECT_EQ(editor.guard, "caf\xE9");
}

TEST(TextDialogWindow, UndoneTypingGivesTheOldBytes) {
  OpenDialog open;
  EntryExitEditor editor;
  editor.entry = "caf\xE9\nb";
  open.Run(editor, [](QtDialogWindow& window) {
    window.FocusOn(EntryExitEditor::IDC_ENTRY);
    OpenDialog::Type("z");
    OpenDialog::Key(Qt::Key_Z, "\x1A", Qt::ControlModifier);
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  });
  EXPECT_EQ(editor.entry, "caf\xE9\nb");
}

TEST(TextDialogWindow, LongTextsAreEdited) {
  OpenDialog open;
  std::string lines;
  while (lines.size() < 10'000'000) lines += "a line of code();\r\n";
  CEventEditor editor;
  editor.guard = std::string(100'000, 'g');
  editor.effect = lines;
  EXPECT_TRUE(open.Run(editor, [](QtDialogWindow& window) {
    window.FocusOn(CEventEditor::IDC_GUARD);
    OpenDialog::Key(Qt::Key_End);
    OpenDialog::Type("!");
    window.FocusOn(CEventEditor::IDC_EFFECT);
    OpenDialog::Type("!");
    window.grab();
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  }));
  EXPECT_TRUE(editor.guard == std::string(100'000, 'g') + "!");
  EXPECT_TRUE(editor.effect == "!" + lines);
}

TEST(TextDialogWindow, LinesBeyondAllMeasureAreShownInPart) {
  OpenDialog open;
  const std::string huge = "first\n" + std::string(10'000'000, '\xE9') + "\r\nlast";
  EntryExitEditor editor;
  editor.entry = huge;
  CEventEditor event;
  event.guard = std::string(10'000'000, 'g');
  EXPECT_TRUE(open.Run(editor, [](QtDialogWindow& window) {
    auto* box = OpenDialog::Find<QPlainTextEdit>(window, EntryExitEditor::IDC_ENTRY);
    EXPECT_EQ(box->document()->blockCount(), 3);
    EXPECT_LT(box->toPlainText().size(), 2000);
    OpenDialog::Type("!");
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  }));
  EXPECT_TRUE(open.Run(event, [](QtDialogWindow& window) {
    window.FocusOn(CEventEditor::IDC_GUARD);
    OpenDialog::Type("!");
    OpenDialog::Find<QAbstractButton>(window, IDOK)->click();
  }));
  EXPECT_TRUE(editor.entry == huge);
  EXPECT_TRUE(event.guard == std::string(10'000'000, 'g'));
}

}  // namespace
