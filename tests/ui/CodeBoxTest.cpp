#include <QClipboard>
#include <QContextMenuEvent>

#include "dialogs/CEventEditor.h"
#include "dialogs/EntryExitEditor.h"
#include "platform/PopupMenus.h"
#include "platform/qt/CodeBox.h"
#include "platform/qt/CodeLexer.h"
#include "tests/support/AllDialogs.h"
#include "tests/support/ScriptedMessageBoxes.h"
#include "tests/ui/OpenDialog.h"

namespace morvane {

// What the hands find in an editor of code.

namespace {

constexpr int kEntry = EntryExitEditor::kEntryId;

class CodeBoxTest : public testing::Test {
 protected:
  /// The entry text of a state after `act` and OK, if `act` leaves it to that.
  std::string Edit(const std::string& before, const std::function<void(CodeBox&)>& act) {
    editor.entry = before;
    accepted = open.Run(editor, [&](QtDialogWindow& window) {
      window.FocusOn(kEntry);
      act(*OpenDialog::Find<CodeBox>(window, kEntry));
      if (editor.IsOpen()) OpenDialog::Click(window, IDOK);
    });
    return editor.entry;
  }
  static void Return(Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    OpenDialog::Key(Qt::Key_Return, "\r", modifiers);
  }
  static void Tab() { OpenDialog::Key(Qt::Key_Tab, "\t"); }
  static void BackTab() { OpenDialog::Key(Qt::Key_Backtab, {}, Qt::ShiftModifier); }
  static void Control(Qt::Key key) { OpenDialog::Key(key, {}, Qt::ControlModifier); }

  OpenDialog open;
  EntryExitEditor editor;
  bool accepted = false;
};

TEST_F(CodeBoxTest, IndentsBreaksAndTakesBack) {
  const auto toEnd = [] { Control(Qt::Key_End); };
  const struct {
    const char* before;
    std::function<void()> type;
    const char* after;
  } cases[] = {
      {"a();", Tab, "    a();"},
      {"\ta();\r\nb();", [&] { toEnd(), Return(), OpenDialog::Type("{"), Return(), Tab(); },
       "\ta();\r\nb();\r\n{\r\n\t\t"},
      {"    a();", BackTab, "a();"},
      {"    a();", [&] { toEnd(), BackTab(); }, "a();"},
      {"a();\r\nb();", [&] { Control(Qt::Key_A), Tab(); }, "    a();\r\n    b();"},
      {"    a();\r\n    b();", [&] { Control(Qt::Key_A), BackTab(); }, "a();\r\nb();"},
      {"\ta();\r\n\r\n      b();", [&] { Control(Qt::Key_A), Tab(), BackTab(), BackTab(); },
       "a();\r\n\r\n  b();"},
      {"  a();", [&] { toEnd(), Return(), OpenDialog::Type("b"); }, "  a();\r\n  b"},
      {"if (a) {",
       [&] { toEnd(), Return(), OpenDialog::Type("b();"), Return(), OpenDialog::Type("}"); },
       "if (a) {\r\n    b();\r\n}"},
      {"a\nb\rc", [&] { Return(Qt::ShiftModifier), OpenDialog::Type("x"); }, "\r\nxa\r\nb\r\nc"},
      {"a", [&] { OpenDialog::Type("x"), Control(Qt::Key_Z), Control(Qt::Key_Y); }, "xa"},
      {"",
       [] {
         QApplication::clipboard()->setText(QString::fromUtf8("1\n2\r\n3\r4\u20285\u20296"));
         Control(Qt::Key_V);
       },
       "1\r\n2\r\n3\r\n4\r\n5\r\n6"},
      {"nul\0"
       "a",
       [&] { toEnd(), OpenDialog::Key(Qt::Key_Plus, "+"); }, "nul+"}};
  for (const auto& [before, type, after] : cases) {
    EXPECT_EQ(Edit(before, [&](CodeBox&) { type(); }), after) << before;
  }
}

TEST_F(CodeBoxTest, ControlReturnAcceptsAndPlainTextsKnowTheKeysToo) {
  EXPECT_EQ(Edit("", [](CodeBox&) { OpenDialog::Type("a"), Return(Qt::ControlModifier); }), "a");
  EXPECT_TRUE(accepted);
  CEventEditor event;
  EXPECT_TRUE(open.Run(event, [](QtDialogWindow& window) {
    OpenDialog::TypeInto(window, CEventEditor::kGuardId, "g");
    OpenDialog::Key(Qt::Key_Z, "\x1A", Qt::ControlModifier);
    Control(Qt::Key_Y);
    Return(Qt::ControlModifier);
  }));
  EXPECT_EQ(event.guard, "g");
  EditMesgDlg note;
  EXPECT_TRUE(open.Run(note, [](QtDialogWindow&) {
    OpenDialog::Type("n");
    OpenDialog::Key(Qt::Key_Return, "\u2028", Qt::ShiftModifier);
    OpenDialog::Type("m");
    OpenDialog::Key(Qt::Key_Z, "\x1A", Qt::ControlModifier);
    Control(Qt::Key_Y);
    Return(Qt::ControlModifier);
  }));
  EXPECT_EQ(note.text, "n\r\nm");
}

TEST_F(CodeBoxTest, EscapeAsksBeforeItThrowsATextAway) {
  ScriptedMessageBoxes boxes;
  const auto escape = [] { OpenDialog::Key(Qt::Key_Escape); };
  Edit("kept", [&](CodeBox&) {
    escape();
    EXPECT_FALSE(editor.IsOpen()) << "nothing was typed";
  });
  Edit("kept", [&](CodeBox& box) {
    OpenDialog::Type("x"), Control(Qt::Key_Z);
    OpenDialog::Type("y"), OpenDialog::Key(Qt::Key_Backspace, "\b");
    box.window()->close();
    EXPECT_FALSE(editor.IsOpen()) << "the text is the same";
  });
  for (const bool byTitleBar : {false, true}) {
    Edit("kept", [&](CodeBox& box) {
      OpenDialog::Type("x");
      for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        boxes.Expect("Discard what you typed?", answer);
        byTitleBar ? void(box.window()->close()) : escape();
        EXPECT_EQ(editor.IsOpen(), answer == MessageAnswer::No);
      }
    });
    EXPECT_FALSE(accepted);
  }
  EXPECT_EQ(editor.entry, "kept");
  AllDialogs all;
  open.Run(all.find, [&](QtDialogWindow& window) {
    OpenDialog::TypeInto(window, FindReplaceDlg::kFindTextId, "sought");
    escape();
    EXPECT_FALSE(all.find.IsOpen()) << "what is looked for is nobody's work";
  });
}

TEST_F(CodeBoxTest, ShowsTheBraceThatMatches) {
  Edit("f(a);", [](CodeBox& box) {
    const QRgb matched = QColor(0xBF, 0xDD, 0xFA).rgb();
    const auto count = [&] {
      QApplication::processEvents();
      const QImage shown = box.grab().toImage();
      int pixels = 0;
      for (int i = 0; i < shown.width() * shown.height(); ++i) {
        pixels += shown.pixel(i % shown.width(), i / shown.width()) == matched ? 1 : 0;
      }
      return pixels;
    };
    EXPECT_EQ(count(), 0);
    OpenDialog::Key(Qt::Key_Right);
    EXPECT_GT(count(), 0);
  });
}

/// How well letters stand out from their paper, from 1 to 21.
double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& colour) {
    const auto part = [](double c) {
      return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

TEST_F(CodeBoxTest, ColoursCanBeReadOnLightAndOnDarkPaper) {
  for (const QColor& paper : {QColor(255, 255, 255), QColor(30, 30, 30), QColor(50, 50, 50)}) {
    const QColor ink = paper.lightness() < 128 ? QColor(230, 230, 230) : QColor(0, 0, 0);
    const QPalette palette(ink, paper, ink, paper, paper, ink, ink, paper, paper);
    CodeBox box(Syntax::Cpp, 40, 3, nullptr);
    box.setPalette(palette);
    for (int style = 0; style < 128; ++style) {
      if (box.lexer()->description(style).isEmpty()) continue;
      EXPECT_EQ(box.lexer()->paper(style), paper) << style;
      EXPECT_GE(Contrast(box.lexer()->color(style), paper), 4.5) << style;
    }
  }
}

/// Chooses one entry of each menu that opens.
class OneEntry : public PopupMenus {
 public:
  unsigned Track(const std::vector<Item>& items, POINT) override {
    const auto found = std::ranges::find(items, static_cast<unsigned>(choice), &Item::id);
    return found != items.end() && found->state.enabled ? found->id : 0;
  }
  BoxCommand choice = BoxCommand::Undo;
};

TEST_F(CodeBoxTest, ItsMenuDoesWhatItSays) {
  OneEntry menu;
  const UseService<PopupMenus> use(menu);
  EXPECT_EQ(
      Edit("a",
           [&](CodeBox& box) {
             for (const BoxCommand choice :
                  {BoxCommand::SelectAll, BoxCommand::Cut, BoxCommand::Paste, BoxCommand::Paste,
                   BoxCommand::Undo, BoxCommand::Undo, BoxCommand::Redo, BoxCommand::SelectAll,
                   BoxCommand::Copy, BoxCommand::Delete, BoxCommand::Paste, BoxCommand::Paste}) {
               menu.choice = choice;
               QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
               QApplication::sendEvent(box.viewport(), &event);
             }
           }),
      "aa");
}

}  // namespace

}  // namespace morvane
