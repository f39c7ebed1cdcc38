#include <array>

#include "platform/CRgn.h"
#include "platform/qt/QtView.h"
#include "tests/ui/FakeChart.h"
#include "tests/ui/WindowTest.h"

namespace {

using Log = std::vector<std::string>;

constexpr QRgb kWhite = 0xFFFFFFFF;

/// A shown view, painted once.
class QtViewTest : public testing::Test {
 protected:
  QtViewTest() {
    widget->resize(200, 150);
    widget->show();
    QApplication::processEvents();
    view.log.clear();
    view.paints = 0;
  }

  QRgb At(int x, int y) const { return widget->Picture().pixel(x, y); }

  void Post(QEvent::Type type, QPoint p, Qt::MouseButtons held = Qt::LeftButton,
            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QCoreApplication::postEvent(widget->viewport(), Mouse(type, p, held, modifiers));
  }
  void PostKey(Qt::Key key) {
    QCoreApplication::postEvent(widget.get(), new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
  }
  void Send(QEvent::Type type, QPoint p, Qt::MouseButtons held = Qt::LeftButton,
            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const std::unique_ptr<QEvent> event(Mouse(type, p, held, modifiers));
    QCoreApplication::sendEvent(widget->viewport(), event.get());
  }
  void Wheel(QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event(QPointF(10, 10), widget->viewport()->mapToGlobal(QPointF(10, 10)), QPoint(),
                      angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget->viewport(), &event);
  }

  FakeView view;
  std::unique_ptr<QtView> widget = std::make_unique<QtView>(view);

 private:
  QEvent* Mouse(QEvent::Type type, QPoint p, Qt::MouseButtons held,
                Qt::KeyboardModifiers modifiers) {
    const bool move = type == QEvent::MouseMove;
    return new QMouseEvent(type, p, widget->viewport()->mapToGlobal(p),
                           move ? Qt::NoButton : Qt::LeftButton,
                           type == QEvent::MouseButtonRelease ? Qt::NoButton : held, modifiers);
  }
};

}  // namespace

TEST_F(QtViewTest, PaintsOnceWhenTheQueueIsEmptyUnlessRedrawIsOff) {
  for (const bool redraw : {true, false}) {
    view.SetRedraw(redraw);
    view.paints = 0;
    for (const int left : {0, 20, 0}) view.InvalidateRect({left, left, left + 10, left + 10});
    if (!redraw) view.UpdateWindow();
    EXPECT_EQ(view.paints, 0);
    QApplication::processEvents();
    EXPECT_EQ(view.paints, redraw ? 1 : 0);
  }
  view.SetRedraw(true);
  QApplication::processEvents();
  EXPECT_EQ(view.paints, 1);
}

TEST_F(QtViewTest, PaintsOnlyWhatIsInvalid) {
  view.color = 0x00FF00;
  view.InvalidateRect({10, 20, 30, 40});
  const std::array<POINT, 3> corners{POINT{60, 10}, {100, 10}, {60, 50}};
  view.InvalidateRgn(CRgn::FromPolygon(corners));
  view.UpdateWindow();
  EXPECT_EQ(At(10, 20), qRgb(0, 255, 0));
  EXPECT_EQ(At(29, 39), qRgb(0, 255, 0));
  EXPECT_EQ(At(65, 15), qRgb(0, 255, 0));
  for (const QPoint p : {QPoint(9, 20), {10, 19}, {30, 39}, {29, 40}, {95, 45}}) {
    EXPECT_EQ(At(p.x(), p.y()), qRgb(255, 0, 0)) << p.x() << "," << p.y();
  }
}

TEST_F(QtViewTest, ErasesWithWhiteBeforeAPaint) {
  view.onDraw = [](CDC&) {};
  view.Invalidate();
  view.UpdateWindow();
  EXPECT_EQ(At(5, 5), kWhite);
}

TEST_F(QtViewTest, InvalidRegionsOfAnySizeAreSafe) {
  constexpr std::int32_t far = 2147483647;
  view.InvalidateRect({-far, -far, far, far});
  const std::array<POINT, 4> corners{POINT{-far, -far}, {far, -far + 100}, {far, far}, {-far, far}};
  view.InvalidateRgn(CRgn::FromPolygon(corners));
  view.UpdateWindow();
  EXPECT_EQ(view.paints, 1);
}

TEST_F(QtViewTest, AContextShowsAtOnceAndInsideAPaintIsLimitedToIt) {
  view.GetDC()->FillSolidRect({5, 5, 10, 10}, RGB(1, 2, 3));
  EXPECT_EQ(At(5, 5), qRgb(1, 2, 3));
  EXPECT_EQ(view.paints, 0);
  EXPECT_EQ(widget->viewport()->grab().toImage().pixel(5, 5), qRgb(1, 2, 3));
  view.onDraw = [this](CDC&) { view.GetDC()->FillSolidRect({0, 0, 200, 150}, 0); };
  view.InvalidateRect({10, 10, 20, 20});
  view.UpdateWindow();
  EXPECT_EQ(At(15, 15), qRgb(0, 0, 0));
  EXPECT_EQ(At(25, 15), qRgb(255, 0, 0));
}

TEST_F(QtViewTest, ResizeKeepsThePictureAndPaintsTheRest) {
  view.color = 0x00FF00;
  widget->resize(260, 180);
  QApplication::processEvents();
  EXPECT_EQ(At(5, 5), qRgb(255, 0, 0));
  EXPECT_EQ(At(250, 5), qRgb(0, 255, 0));
  EXPECT_EQ(view.GetClientRect(), (RECT{0, 0, 260, 180}));
}

TEST_F(QtViewTest, MouseAndKeysReachTheView) {
  Send(QEvent::MouseMove, {3, 4}, Qt::NoButton);
  Send(QEvent::MouseButtonPress, {5, 6}, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_TRUE(view.IsShiftDown());
  EXPECT_EQ(view.GetCursorPos(), (POINT{5, 6}));
  Send(QEvent::MouseButtonRelease, {7, 8});
  Send(QEvent::MouseButtonDblClick, {7, 8}, Qt::LeftButton, Qt::ControlModifier);
  PostKey(Qt::Key_PageDown);
  PostKey(Qt::Key_A);
  QApplication::processEvents();
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(widget->viewport(), &leave);
  EXPECT_EQ(view.log, (Log{"cursor", "move 3,4", "down 5,6 f5", "up 7,8", "double 7,8 f9", "key3",
                           "key0", "leave"}));
}

TEST_F(QtViewTest, ContextMenuComesAtAScreenPoint) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(12, 13),
                          widget->viewport()->mapToGlobal(QPoint(12, 13)));
  QCoreApplication::sendEvent(widget->viewport(), &event);
  EXPECT_EQ(view.log, Log{"menu 12,13"});
}

TEST_F(QtViewTest, NestedLoopGetsItsMessagesInOrder) {
  std::vector<Message> got;
  view.onPress = [&] {
    view.SetCapture();
    for (;;) {
      const Message message = view.NextMessage();
      if (message.kind == Message::Kind::Other) continue;
      got.push_back(message);
      if (message.kind == Message::Kind::LButtonUp) view.ReleaseCapture();
      if (!view.HasCapture()) return;
    }
  };
  Post(QEvent::MouseMove, {20, 21});
  PostKey(Qt::Key_Escape);
  Post(QEvent::MouseMove, {30, 31}, Qt::LeftButton, Qt::ControlModifier);
  Post(QEvent::MouseButtonRelease, {40, 41});
  Post(QEvent::MouseMove, {50, 51}, Qt::NoButton);
  Send(QEvent::MouseButtonPress, {10, 10});
  ASSERT_EQ(got.size(), 4U);
  EXPECT_EQ(got[0].kind, Message::Kind::MouseMove);
  EXPECT_EQ(got[0].point, (POINT{20, 21}));
  EXPECT_EQ(got[1].kind, Message::Kind::KeyDown);
  EXPECT_EQ(got[1].key, VirtualKey::Escape);
  EXPECT_EQ(got[2].flags, static_cast<unsigned>(MK_LBUTTON | MK_CONTROL));
  EXPECT_EQ(got[3].point, (POINT{40, 41}));
  // What came after the gesture went the normal way.
  EXPECT_EQ(view.log, (Log{"down 10,10 f1", "cursor", "move 50,51"}));
}

TEST_F(QtViewTest, PaintsDuringALoopButDoesNotScroll) {
  int painted = 0;
  view.SetScrollSizes({1000, 1000}, {10, 10});
  view.onPress = [&] {
    view.Invalidate();
    while (view.paints == 0) view.NextMessage();
    painted = view.paints;
    Post(QEvent::MouseMove, {1, 1});
    QCoreApplication::postEvent(widget->viewport(),
                                new QWheelEvent({1, 1}, {1, 1}, {}, {0, -120}, Qt::NoButton,
                                                Qt::NoModifier, Qt::NoScrollPhase, false));
    while (view.NextMessage().kind != Message::Kind::MouseMove) {
    }
  };
  Send(QEvent::MouseButtonPress, {10, 10});
  QApplication::processEvents();
  EXPECT_EQ(painted, 1);
  EXPECT_EQ(view.GetScrollPos(ScrollBar::Vertical), 0);
}

TEST_F(QtViewTest, CaptureIsLostWithTheWindow) {
  bool lost = false;
  view.onPress = [&] {
    view.SetCapture();
    EXPECT_TRUE(view.HasCapture());
    view.NextMessage();
    lost = !view.HasCapture();
  };
  QCoreApplication::postEvent(widget.get(), new QEvent(QEvent::WindowDeactivate));
  Send(QEvent::MouseButtonPress, {10, 10});
  EXPECT_TRUE(lost);
}

TEST_F(QtViewTest, CaptureIsLostToAnotherGrab) {
  QWidget other;
  view.onPress = [&] { view.SetCapture(); };
  Send(QEvent::MouseButtonPress, {10, 10});
  EXPECT_TRUE(view.HasCapture());
  other.grabMouse();
  EXPECT_FALSE(view.HasCapture());
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
    Send(QEvent::MouseButtonPress, {10, 10});
    EXPECT_EQ(kind, Message::Kind::Quit);
    EXPECT_FALSE(widget->IsWaiting());
  }
}

TEST_F(QtViewTest, TheViewOutlivesItsWindow) {
  QTimer::singleShot(0, qApp, [this] { widget.reset(); });
  EXPECT_EQ(view.NextMessage().kind, Message::Kind::Quit) << "the loop ends with the window";
  EXPECT_FALSE(view.HasWindow());
  view.Invalidate();
  EXPECT_EQ(view.NextMessage().kind, Message::Kind::Quit);
}

TEST_F(QtViewTest, KeysAreNoCommandsDuringALoop) {
  QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
  shortcut.ignore();
  view.onPress = [&] { view.NextMessage(); };
  QTimer::singleShot(0, widget.get(),
                     [&] { QCoreApplication::sendEvent(widget.get(), &shortcut); });
  Send(QEvent::MouseButtonPress, {10, 10});
  EXPECT_TRUE(shortcut.isAccepted());
  shortcut.ignore();
  QCoreApplication::sendEvent(widget.get(), &shortcut);
  EXPECT_FALSE(shortcut.isAccepted());
}

TEST_F(QtViewTest, WheelScrollsByLinesAndZooms) {
  view.SetScrollSizes({1000, 1000}, {10, 10});
  Wheel({0, -120});
  EXPECT_EQ(view.log, (Log{"v1:0", "v1:0", "v1:0"}));
  view.log.clear();
  Wheel({0, 60}, Qt::ShiftModifier);
  Wheel({0, 60}, Qt::ShiftModifier);
  EXPECT_EQ(view.log, (Log{"h0:0", "h0:0", "h0:0"}));
  view.log.clear();
  Wheel({0, 120}, Qt::ControlModifier);
  Wheel({0, -120}, Qt::ControlModifier);
  view.disabled = {ID_ZOOM_IN};
  Wheel({0, 120}, Qt::ControlModifier);
  EXPECT_EQ(view.commands, (std::vector<unsigned>{ID_ZOOM_IN, ID_ZOOM_OUT}));
  EXPECT_TRUE(view.log.empty());
}

TEST_F(QtViewTest, ScrollBarsFollowTheViewAndTheViewThem) {
  view.SetScrollSizes({1000, 900}, {40, 30});
  QApplication::processEvents();
  view.log.clear();
  QScrollBar* bar = widget->horizontalScrollBar();
  EXPECT_EQ(bar->maximum(), view.GetScrollLimit(ScrollBar::Horizontal));
  EXPECT_EQ(bar->pageStep(), 40);
  view.SetScrollPos(ScrollBar::Horizontal, 77);
  EXPECT_EQ(bar->value(), 77);
  EXPECT_TRUE(view.log.empty());
  bar->setValue(123);
  EXPECT_EQ(view.log, Log{"h6:123"});
  EXPECT_EQ(view.GetScrollPos(ScrollBar::Horizontal), 123);
}
