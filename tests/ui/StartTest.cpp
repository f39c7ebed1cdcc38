#include <QMessageBox>

#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtPopupMenus.h"
#include "resources/TextSource.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/CMorvaneApp.h"
#include "shell/qt/CSplashDlg.h"
#include "tests/support/Places.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

QString Title() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (qobject_cast<CMainFrame*>(window) != nullptr) return window->windowHandle()->title();
  }
  return {};
}

TEST(Start, OpensTheNamedChartOrANewOne) {
  const std::string lift = SourcePath("Examples/Lift/Lift.mrv");
  MemoryProfile profile;
  profile.WriteString("", "Language", "fra");
  const UseService<Profile> use(profile);
  ScriptedMessageBoxes boxes;
  const struct {
    std::string file;
    const char* title;
    const char* message;
  } cases[] = {{"", "Morvane_Diagram1 - Morvane", nullptr},
               {lift, "Lift.mrv - Morvane", nullptr},
               {lift + "x", "Morvane", "Aucun fichier"}};
  for (const auto& c : cases) {
    if (c.message != nullptr) boxes.Expect(c.message);
    CMorvaneApp program;
    EXPECT_EQ(program.InitInstance(c.file), c.message == nullptr);
    EXPECT_EQ(Title(), c.title);
    EXPECT_EQ(TextSource::Current().Locale(), "fr");
  }
  TextSource::Use(nullptr);
}

TEST(Start, TheAboutBoxShowsThePictureAndGoesWithAKey) {
  bool wasShown = false;
  InNextWindow<CSplashDlg>([&](CSplashDlg& box) {
    const QImage picture = box.grab().toImage();
    EXPECT_NE(picture.pixel(10, 10), picture.pixel(picture.width() / 2, picture.height() / 2));
    SendKey(box, Qt::Key_Space);
    wasShown = !box.isVisible();
  });
  CSplashDlg about(true);
  EXPECT_TRUE(about.IsLoaded());
  about.exec();
  EXPECT_TRUE(wasShown);
}

TEST(MessageBoxWindow, ShowsTheTextAsItIsAndAnswersWithItsButtons) {
  const struct {
    unsigned flags;
    QMessageBox::StandardButton button;  ///< the one that has the keyboard
    MessageAnswer pressed;
    MessageAnswer escaped;
  } cases[] = {
      {MB_OK, QMessageBox::Ok, MessageAnswer::Ok, MessageAnswer::Ok},
      {MB_OKCANCEL, QMessageBox::Ok, MessageAnswer::Ok, MessageAnswer::Cancel},
      {MB_YESNO, QMessageBox::Yes, MessageAnswer::Yes, MessageAnswer::No},
      {MB_YESNOCANCEL, QMessageBox::Yes, MessageAnswer::Yes, MessageAnswer::Cancel},
      {kConfirmFlags, QMessageBox::No, MessageAnswer::No, MessageAnswer::No},
  };
  QtMessageBoxes boxes;
  for (const auto& c : cases) {
    InNextWindow<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(box.text(), "a <b>text</b> in \u00e4");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.icon() == QMessageBox::Critical, (c.flags & MB_ICONHAND) != 0);
      EXPECT_EQ(box.defaultButton() != nullptr ? box.standardButton(box.defaultButton())
                                               : QMessageBox::Ok,
                c.button);
      box.button(c.button)->click();
    });
    EXPECT_EQ(boxes.Show("a <b>text</b> in \xE4", c.flags), c.pressed) << c.flags;
    InNextWindow<QMessageBox>([](QMessageBox& box) { SendKey(box, Qt::Key_Escape); });
    EXPECT_EQ(boxes.Show("a <b>text</b> in \xE4", c.flags | MB_ICONHAND), c.escaped) << c.flags;
  }
}

TEST(PopupMenuWindow, GivesTheChosenCommand) {
  QtPopupMenus menus;
  const std::vector<PopupMenus::Item> items = {{7, "&Seven", CommandState::Enabled(true)},
                                               {0, "", {}},
                                               {8, "Eight", CommandState::Enabled(false)},
                                               {9, "Nine", CommandState::Checked(true)}};
  for (const bool escape : {false, true}) {
    QTimer::singleShot(0, [escape] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      const QList<QAction*> actions = menu->actions();
      EXPECT_TRUE(actions[1]->isSeparator());
      EXPECT_FALSE(actions[2]->isEnabled());
      EXPECT_TRUE(actions[3]->isChecked());
      menu->setActiveAction(actions[3]);
      SendKey(*menu, escape ? Qt::Key_Escape : Qt::Key_Return);
    });
    EXPECT_EQ(menus.Track(items, {10, 10}), escape ? 0U : 9U);
  }
}

}  // namespace

}  // namespace morvane
