#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>

#include "dialogs/CEventEditor.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "platform/qt/CodeBox.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

// Texts on their way through a real window.

namespace {

using namespace std::string_literals;

constexpr int kEntry = EntryExitEditor::kEntryId;
constexpr int kExit = EntryExitEditor::kExitId;

class TextDialogWindow : public testing::Test {
 protected:
  /// The two texts of a state after `act` and OK.
  std::pair<std::string, std::string> Edit(const std::string& entry, const std::string& exit,
                                           const std::function<void(QtDialogWindow&)>& act) {
    EntryExitEditor editor;
    editor.entry = entry;
    editor.exit = exit;
    EXPECT_TRUE(open.Run(editor, [&](QtDialogWindow& window) {
      act(window);
      OpenDialog::Click(window, IDOK);
    }));
    return {editor.entry, editor.exit};
  }
  OpenDialog open;
};

TEST_F(TextDialogWindow, UntouchedBytesGoBackAndTypedTextIsUtf8) {
  for (const std::string& bytes :
       {"caf\xE9 \x80"s, "a\nb\r\nc\rd"s, "nul\0tail"s, "\x01\x1A\x7F\t\x0B\x0C"s,
        "nbsp\xC2\xA0\xE2\x80\xA8"s, "\xEF\xB7\x90\xEF\xBF\xBC"s, ""s}) {
    const auto [entry, exit] = Edit(bytes, bytes, [](QtDialogWindow& window) {
      OpenDialog::TypeInto(window, kEntry, "z");
      OpenDialog::Key(Qt::Key_Z, "\x1A", Qt::ControlModifier);
      window.FocusOn(kExit);
      OpenDialog::Key(Qt::Key_A, "a", Qt::ControlModifier);
      OpenDialog::Type(QString::fromUtf8("é"));
      OpenDialog::Key(Qt::Key_Return, "\r");
      OpenDialog::Type("2");
    });
    EXPECT_EQ(entry, bytes) << "what was typed there is undone";
    EXPECT_EQ(exit, "\xC3\xA9\r\n2");
  }
}

TEST_F(TextDialogWindow, EditedTextKeepsWhatItHeld) {
  const auto [entry, exit] = Edit("caf\xE9\n\x01 nul\0 nbsp\t"s, "x\xC2\xA0\xE2\x80\xA8y\r\n\r\n",
                                  [](QtDialogWindow& window) {
                                    OpenDialog::TypeInto(window, kEntry, "!");
                                    OpenDialog::TypeInto(window, kExit, "!");
                                  });
  EXPECT_EQ(entry, "!caf\xC3\xA9\r\n\x01 nul\0 nbsp\t"s);
  EXPECT_EQ(exit, "!x\xC2\xA0\r\ny\r\n\r\n") << "what shows as a break is one";
}

TEST_F(TextDialogWindow, OneLineStaysOneLine) {
  CEventEditor editor;
  editor.guard = "caf\xE9";
  EXPECT_TRUE(open.Run(editor, [](QtDialogWindow& window) {
    auto* event = OpenDialog::Find<QLineEdit>(window, CEventEditor::kEventId);
    EXPECT_EQ(event->selectedText(), "-Edit-") << "typing replaces it";
    for (const QString& text : {QString("a\nb\r\nc"), QString(50000, 'x')}) {
      QApplication::clipboard()->setText(text);
      event->paste();
    }
    OpenDialog::Key(Qt::Key_Return, "\r");
  }));
  EXPECT_EQ(editor.event, "a b c" + std::string(50000, 'x'));
  EXPECT_EQ(editor.guard, "caf\xE9");
}

/// What another program can put on the clipboard, or drag here, and what of it is a text.
struct Content {
  std::function<void(QMimeData&)> fill;
  QString text;

  std::unique_ptr<QMimeData> Make() const {
    auto made = std::make_unique<QMimeData>();
    fill(*made);
    return made;
  }
};

TEST_F(TextDialogWindow, PastesAndDropsWhatHasATextAndNothingElse) {
  const Content contents[] = {
      {[](QMimeData&) {}, ""},
      {[](QMimeData& data) { data.setImageData(QImage(2, 2, QImage::Format_RGB32)); }, ""},
      {[](QMimeData& data) { data.setData("application/x-other", "bytes"); }, ""},
      {[](QMimeData& data) { data.setHtml("<b>bold</b>"); }, ""},
      {[](QMimeData& data) { data.setText(""); }, ""},
      {[](QMimeData& data) { data.setData("text/plain", {}); }, ""},
      {[](QMimeData& data) { data.setText("a\nb"); }, "a\nb"}};
  for (const Content& content : contents) {
    const auto [entry, exit] = Edit("", "", [&](QtDialogWindow& window) {
      QApplication::clipboard()->setMimeData(content.Make().release());
      window.FocusOn(kEntry);
      OpenDialog::Key(Qt::Key_V, "\x16", Qt::ControlModifier);
      OpenDialog::Key(Qt::Key_Insert, {}, Qt::ShiftModifier);
      auto* box = OpenDialog::Find<CodeBox>(window, kEntry);
      EXPECT_EQ(box->text().remove('\r'), content.text + content.text);
      for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        SendMouse(*box->viewport(), type, {5, 5}, Qt::MiddleButton);
      }

      const std::unique_ptr<QMimeData> dragged = content.Make();
      QWidget& target = *OpenDialog::Find<CodeBox>(window, kExit)->viewport();
      QDragEnterEvent enter({5, 5}, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&target, &enter);
      QDropEvent drop({5, 5}, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&target, &drop);
    });
    EXPECT_EQ(exit, content.text.isEmpty() ? "" : "a\r\nb");
    EditMesgDlg note;
    EXPECT_TRUE(open.Run(note, [](QtDialogWindow& window) {
      OpenDialog::Key(Qt::Key_V, "\x16", Qt::ControlModifier);
      OpenDialog::Click(window, IDOK);
    }));
    EXPECT_EQ(note.text, exit);
  }
  QApplication::clipboard()->clear();
  EXPECT_EQ(Edit("kept", "",
                 [](QtDialogWindow& window) {
                   window.FocusOn(kEntry);
                   OpenDialog::Key(Qt::Key_V, "\x16", Qt::ControlModifier);
                 })
                .first,
            "kept");
}

TEST_F(TextDialogWindow, LongTextsAreEditedAndEndlessLinesShownInPart) {
  std::string lines;
  while (lines.size() < 10'000'000) lines += "a line of code();\r\n";
  const std::string endless = "first\n" + std::string(10'000'000, '\xE9') + "\r\nlast";
  const auto [entry, exit] = Edit(endless, lines, [](QtDialogWindow& window) {
    auto* box = OpenDialog::Find<CodeBox>(window, kEntry);
    EXPECT_EQ(box->lines(), 3);
    EXPECT_LT(box->length(), 3000);
    OpenDialog::TypeInto(window, kEntry, "!");
    OpenDialog::TypeInto(window, kExit, "!");
    window.grab();
  });
  EXPECT_TRUE(entry == endless) << "only looked at";
  EXPECT_TRUE(exit == "!" + lines);
  for (const std::size_t length : {100'000U, 10'000'000U}) {
    CEventEditor event;
    event.guard = std::string(length, 'g');
    EXPECT_TRUE(open.Run(event, [](QtDialogWindow& window) {
      window.FocusOn(CEventEditor::kGuardId);
      OpenDialog::Key(Qt::Key_End);
      OpenDialog::Type("!");
      OpenDialog::Click(window, IDOK);
    }));
    EXPECT_TRUE(event.guard == std::string(length, 'g') + (length == 100'000U ? "!" : ""));
  }
}

}  // namespace

}  // namespace morvane
