#include "drawing/TextCodec.h"
#include "drawing/qt/QtTextBreaks.h"
#include "shell/qt/NoticeBar.h"
#include "tests/support/TestSystem.h"
#include "tests/ui/Canvas.h"
#include "tests/ui/MainWindow.h"

namespace morvane {

namespace {

class EncodingBar : public MainWindow<CMorvaneDoc, LayoutMgr> {
 protected:
  /// The texts on the bars that show, with their buttons.
  QStringList Shown() {
    QApplication::processEvents();
    QStringList texts;
    const auto* bar = frame->ActiveChild()->findChild<NoticeBar*>();
    for (const auto* label : bar->findChildren<QLabel*>()) {
      if (label->isVisible() && !label->text().isEmpty()) texts << label->text();
    }
    for (const auto* button : bar->findChildren<QPushButton*>()) {
      if (button->isVisible()) texts << button->text();
    }
    return texts;
  }
  void Press(const char* text) {
    for (auto* button : frame->ActiveChild()->findChild<NoticeBar*>()->findChildren<QPushButton*>())
      if (button->isVisible() && button->text() == text) return button->click();
    FAIL() << "no button " << text;
  }

  TempFolder folder;
};

TEST_F(EncodingBar, TellsConvertsAndGoes) {
  const std::string bytes = ModelFile::ToDisk(ChartText(StateRecord(1, {10, 10, 40, 40},
                                                                    "gr\xF6\xDF"
                                                                    "e")));
  const std::string path = folder.Write("old.mrv", bytes);
  CMorvaneDoc& document = Open(path);
  const QStringList asked{QString::fromStdString(LoadText(IDS_OLD_ENCODING)), "Convert to UTF-8",
                          "Keep Windows-1252", "Close"};
  EXPECT_EQ(Shown(), asked);
  Press("Close");
  EXPECT_EQ(Shown(), QStringList());
  document.Revert();
  ASSERT_TRUE(document.DoFileSave());
  EXPECT_EQ(folder.Read("old.mrv"), bytes);

  auto& state = dynamic_cast<GenericState&>(*ViewOf(document).GetModel().Objects().front());
  state.NameText() = "\u03B1";
  state.OnRenamed();
  ViewOf(document).TakeSnapshot();
  EXPECT_EQ(Shown(), QStringList() << QString::fromStdString(LoadText(IDS_BECAME_UTF8)) << "Close");
  ViewOf(document).OnCommand(ID_EDIT_UNDO);
  EXPECT_EQ(Shown(), asked);
  Press("Convert to UTF-8");
  EXPECT_EQ(Shown(), QStringList());
  ASSERT_TRUE(document.DoFileSave());
  EXPECT_TRUE(IsValidUtf8(folder.Read("old.mrv")));
}

/// Where a text that is set into a wide room is painted.
QRect Painted(const std::string& text, unsigned flags) {
  Canvas canvas(300, 60, 1);
  canvas.Draw([&](CDC& dc) {
    RECT room{0, 0, 300, 60};
    dc.DrawText(text, room, flags);
  });
  return canvas.Painted();
}

TEST(TextsOfEachScript, StandAtTheirEdge) {
  const std::string hebrew = "\u05E9\u05DC\u05D5\u05DD";
  EXPECT_LT(Painted("abc " + hebrew, DT_WORDBREAK).left(), 10);
  EXPECT_GT(Painted(hebrew + " abc", DT_WORDBREAK).right(), 290);
  const QRect middle = Painted(hebrew, DT_WORDBREAK | DT_CENTER);
  EXPECT_NEAR(middle.center().x(), 150, 2);
}

TEST(TextsOfEachScript, PartByTheRulesOfTheToolkit) {
  const QtTextBreaks breaks;
  using Places = std::vector<std::size_t>;
  EXPECT_EQ(breaks.LineBreaks("\u6F22\u5B57\u3002a"), (Places{3, 9}));
  const Places thai = breaks.LineBreaks("\u0E40\u0E1B\u0E34\u0E14\u0E1B\u0E23\u0E30\u0E15\u0E39");
  EXPECT_EQ(thai.empty(), !HasThaiWords()) << "by a dictionary";
  EXPECT_EQ(breaks.LetterBreaks("e\u0301\U0001F469\u200D\U0001F4BBx"), (Places{3, 14}));
}

}  // namespace

}  // namespace morvane
