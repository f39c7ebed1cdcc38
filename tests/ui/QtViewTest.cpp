#include "platform/qt/QtView.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

using Log = std::vector<std::string>;

/// A shown view, painted red once.
class QtViewTest : public testing::Test {
 protected:
  QtViewTest() {
    widget->resize(200, 150);
    widget->show();
    QApplication::processEvents();
    view.log.clear();
    view.paints = 0;
  }

  QWidget& Area() { return *widget->viewport(); }
  void Press() { SendMouse(Area(), QEvent::MouseButtonPress, {10, 10}); }
  void Wheel(int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event({10, 10}, Area().mapToGlobal(QPointF(10, 10)), {}, {0, angle}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Area(), &event);
  }

  FakeView view;
  std::unique_ptr<QtView> widget = std::make_unique<QtView>(view);
};

TEST_F(QtViewTest, WhatComesIntoSightByAResizeIsPainted) {
  widget->resize(260, 180);
  QApplication::processEvents();
  EXPECT_EQ(widget->Picture().pixel(250, 170), 0xFFFF0000);
}

TEST_F(QtViewTest, MouseAndKeysReachTheView) {
  SendMouse(Area(), QEvent::MouseMove, {3, 4}, Qt::NoButton);
  SendMouse(Area(), QEvent::MouseButtonPress, {5, 6}, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_TRUE(view.IsShiftDown());
  EXPECT_FALSE(view.IsAltDown());
  EXPECT_EQ(view.GetCursorPos(), (POINT{5, 6}));
  SendMouse(Area(), QEvent::MouseButtonRelease, {7, 8}, Qt::LeftButton, Qt::AltModifier);
  EXPECT_TRUE(view.IsAltDown());
  SendMouse(Area(), QEvent::MouseButtonDblClick, {7, 8}, Qt::LeftButton, Qt::ControlModifier);
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_A}) PostKey(*widget, key);
  QApplication::processEvents();
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&Area(), &leave);
  QContextMenuEvent menu(QContextMenuEvent::Mouse, {12, 13}, Area().mapToGlobal(QPoint(12, 13)));
  QCoreApplication::sendEvent(&Area(), &menu);
  EXPECT_EQ(view.log, (Log{"cursor", "move 3,4", "down 5,6 f5", "up 7,8 f32", "double 7,8 f9",
                           "key3", "key0", "leave", "menu 12,13"}));
}

TEST_F(QtViewTest, TheKeysForAMenuAskForOneWhereverThePointerIs) {
  SendKey(*widget, Qt::Key_F10, {}, Qt::ShiftModifier);
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {3, 4}, Area().mapToGlobal(QPoint(3, 4)));
  QCoreApplication::sendEvent(&Area(), &key);
  const POINT middle = CentreOf(widget->ClientRect());
  const std::string menu = "menu " + std::to_string(middle.x) + "," + std::to_string(middle.y);
  EXPECT_EQ(view.log, (Log{menu, menu}));
}

TEST_F(QtViewTest, ALoopPaintsButNeitherScrollsNorTakesKeysForCommands) {
  QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
  view.SetScrollSizes({1000, 1000}, {10, 10});
  view.onPress = [&] {
    view.Invalidate();
    QTimer awake;
    awake.start(1);
    while (view.paints == 0) view.NextMessage();
    awake.stop();
    QTimer::singleShot(0, widget.get(), [&] {
      Wheel(-120);
      shortcut.ignore();
      QCoreApplication::sendEvent(widget.get(), &shortcut);
      PostMouse(Area(), QEvent::MouseMove, {1, 1});
    });
    while (view.NextMessage().kind != Message::Kind::MouseMove) continue;
  };
  Press();
  EXPECT_EQ(view.paints, 1);
  EXPECT_EQ(view.GetScrollPos(ScrollBar::Vertical), 0);
  EXPECT_TRUE(shortcut.isAccepted());
  shortcut.ignore();
  QCoreApplication::sendEvent(widget.get(), &shortcut);
  EXPECT_FALSE(shortcut.isAccepted());
}

TEST_F(QtViewTest, CaptureIsLostWithTheWindowAndToAnotherGrab) {
  QWidget other;
  for (const bool toAnother : {false, true}) {
    view.onPress = [&] {
      view.SetCapture();
      if (!toAnother) view.NextMessage();
    };
    if (!toAnother) QCoreApplication::postEvent(widget.get(), new QEvent(QEvent::WindowDeactivate));
    Press();
    EXPECT_EQ(view.HasCapture(), toAnother);
    if (toAnother) other.grabMouse();
    EXPECT_FALSE(view.HasCapture());
  }
  other.releaseMouse();
}

TEST_F(QtViewTest, ALoopEndsWhenItsWindowGoes) {
  Message::Kind kind = Message::Kind::Other;
  view.onPress = [&] { kind = view.NextMessage().kind; };
  for (const auto end : {&QtView::EndLoop, &QtView::Detach}) {
    kind = Message::Kind::Other;
    QTimer::singleShot(0, widget.get(), [&] {
      EXPECT_TRUE(widget->IsWaiting());
      (widget.get()->*end)();
    });
    Press();
    EXPECT_EQ(kind, Message::Kind::Quit);
    EXPECT_FALSE(widget->IsWaiting());
  }
  // The view outlives its window.
  widget = std::make_unique<QtView>(view);
  QTimer::singleShot(0, qApp, [this] { widget.reset(); });
  EXPECT_EQ(view.NextMessage().kind, Message::Kind::Quit);
  EXPECT_FALSE(view.HasWindow());
  view.Invalidate();
  EXPECT_EQ(view.NextMessage().kind, Message::Kind::Quit);
}

TEST_F(QtViewTest, WheelScrollsAndZooms) {
  view.SetScrollSizes({1000, 1000}, {10, 10});
  Wheel(-120);
  EXPECT_EQ(view.GetScrollPosition(), (POINT{0, 60}));
  for (int part = 0; part < 8; ++part) Wheel(-15, Qt::ShiftModifier);
  EXPECT_EQ(view.GetScrollPosition(), (POINT{60, 60}));
  for (const int angle : {120, -120}) Wheel(angle, Qt::ControlModifier);
  EXPECT_EQ(view.log, (Log{"z1", "z-1"}));
}

TEST_F(QtViewTest, AHandDragsTheSurface) {
  view.SetScrollSizes({1000, 1000}, {10, 10});
  const auto drag = [this](Qt::MouseButton button) {
    view.SetScrollPos(ScrollBar::Horizontal, 100);
    view.SetScrollPos(ScrollBar::Vertical, 100);
    SendMouse(*widget->viewport(), QEvent::MouseButtonPress, {50, 50}, button);
    for (const QPoint p : {QPoint(40, 60), {20, 65}, {30, 80}}) {
      SendMouse(*widget->viewport(), QEvent::MouseMove, p, button);
    }
    SendMouse(*widget->viewport(), QEvent::MouseButtonRelease, {30, 80}, button);
    SendMouse(*widget->viewport(), QEvent::MouseMove, {90, 90}, Qt::NoButton);
  };
  const auto letGo = [this] {
    QKeyEvent event(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(widget.get(), &event);
  };
  drag(Qt::MiddleButton);
  EXPECT_EQ(view.GetScrollPosition(), (POINT{120, 70}));
  SendKey(*widget, Qt::Key_Space);
  view.log.clear();
  drag(Qt::LeftButton);
  letGo();
  EXPECT_EQ(view.GetScrollPosition(), (POINT{120, 70}));
  EXPECT_EQ(std::ranges::count(view.log, "down 1 50,50"), 0);
  drag(Qt::LeftButton);
  EXPECT_EQ(view.GetScrollPosition(), (POINT{100, 100}));
  // Space that is only hit is a key.
  view.log.clear();
  SendKey(*widget, Qt::Key_Space);
  EXPECT_EQ(view.log, Log{});
  letGo();
  EXPECT_EQ(view.log, Log{"key" + std::to_string(static_cast<int>(VirtualKey::Space))});
}

TEST_F(QtViewTest, ScrollBarsFollowTheViewAndTheViewThem) {
  view.SetScrollSizes({1000, 900}, {40, 30});
  QApplication::processEvents();
  view.log.clear();
  QScrollBar* bar = widget->horizontalScrollBar();
  EXPECT_EQ(bar->maximum(), view.GetScrollLimit(ScrollBar::Horizontal));
  EXPECT_EQ(bar->pageStep(), widget->viewport()->width() * 9 / 10);
  view.SetScrollPos(ScrollBar::Horizontal, 77);
  EXPECT_EQ(bar->value(), 77);
  EXPECT_TRUE(view.log.empty());
  bar->setValue(123);
  EXPECT_EQ(view.log, Log{"h6:123"});
  EXPECT_EQ(view.GetScrollPos(ScrollBar::Horizontal), 123);
}

}  // namespace

}  // namespace morvane
