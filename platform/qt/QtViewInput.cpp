#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QPointer>
#include <QTextDocument>
#include <QToolTip>

#include "platform/CScrollView.h"
#include "platform/ModalLoop.h"
#include "platform/qt/PartsTeller.h"
#include "platform/qt/QtCursors.h"
#include "platform/qt/QtView.h"

namespace morvane {

namespace {

/// A notch of the wheel is 120 eighths of a degree.
constexpr int kWheelNotch = 120;
/// The edge of the window within which a gesture scrolls, and its steps, pixels.
constexpr int kEdge = 8;
constexpr int kEdgeStep = 16;
constexpr int kMostEdgeStep = 60;

/// How far a gesture at a place scrolls at once: the further out, the faster.
int EdgeStep(int place, int size) {
  const int before = kEdge - place;
  const int behind = place - (size - 1 - kEdge);
  if (before > 0) return -std::min(kEdgeStep + before, kMostEdgeStep);
  return behind > 0 ? std::min(kEdgeStep + behind, kMostEdgeStep) : 0;
}

unsigned ToFlags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
  unsigned flags = 0;
  if (buttons & Qt::LeftButton) flags |= MK_LBUTTON;
  if (buttons & Qt::RightButton) flags |= MK_RBUTTON;
  if (modifiers & Qt::ShiftModifier) flags |= MK_SHIFT;
  if (modifiers & Qt::ControlModifier) flags |= MK_CONTROL;
  if (modifiers & Qt::AltModifier) flags |= MK_ALT;
  return flags;
}

VirtualKey ToVirtualKey(int key) {
  switch (key) {
    case Qt::Key_Escape: return VirtualKey::Escape;
    case Qt::Key_PageUp: return VirtualKey::Prior;
    case Qt::Key_PageDown: return VirtualKey::Next;
    case Qt::Key_Home: return VirtualKey::Home;
    case Qt::Key_End: return VirtualKey::End;
    case Qt::Key_Left: return VirtualKey::Left;
    case Qt::Key_Up: return VirtualKey::Up;
    case Qt::Key_Right: return VirtualKey::Right;
    case Qt::Key_Down: return VirtualKey::Down;
    case Qt::Key_Delete: return VirtualKey::Delete;
    case Qt::Key_Return:
    case Qt::Key_Enter: return VirtualKey::Return;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return VirtualKey::Tab;
    default: return VirtualKey::Other;
  }
}

}  // namespace

Message QtView::NextMessage() {
  const QPointer<QtView> self(this);
  Message quit;
  quit.kind = Message::Kind::Quit;
  if (queue.empty() && !quitLoop && view != nullptr) {
    const bool outer = waiting;
    waiting = true;
    stirred = false;
    // What is there already is handed out before the thread may sleep. Some dispatchers tell only
    // of what the system sent, not of what was posted to the program.
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    const bool sent = dispatcher->processEvents(QEventLoop::AllEvents);
    if (self == nullptr) return quit;
    if (!sent && !stirred) dispatcher->processEvents(QEventLoop::WaitForMoreEvents);
    if (self == nullptr) return quit;
    waiting = outer;
  }
  if (quitLoop || view == nullptr || QCoreApplication::closingDown()) {
    quitLoop = false;
    return quit;
  }
  if (queue.empty()) return {};
  const Message message = queue.front();
  queue.pop_front();
  Remember(message);
  return message;
}

void QtView::EndLoop() {
  if (waiting) quitLoop = true;
  Stir();
}

void QtView::Stir() {
  if (!waiting) return;
  stirred = true;
  // Or it would go on to sleep before it returns.
  if (auto* dispatcher = QAbstractEventDispatcher::instance()) dispatcher->interrupt();
}

void QtView::Remember(const Message& message) {
  if (message.kind != Message::Kind::KeyDown) {
    pointer = message.point;
    pointerInside = viewport()->rect().contains(pointer.x, pointer.y);
  }
  shiftDown = (message.flags & MK_SHIFT) != 0;
  altDown = (message.flags & MK_ALT) != 0;
}

bool QtView::Take(const Message& message) {
  if (view == nullptr) return false;
  if (message.kind != Message::Kind::KeyDown) newest = message.point;
  if (waiting) {
    queue.push_back(message);
    Stir();
    if (message.kind == Message::Kind::MouseMove) NoteEdge(message.point);
    return true;
  }
  edgeTimer.stop();
  HandleLeftovers();
  return Handle(message);
}

bool QtView::Handle(const Message& message) {
  if (view == nullptr) return false;
  const QPointer<QtView> self(this);
  Remember(message);
  ++handlers;
  bool used = true;
  if (message.kind == Message::Kind::KeyDown) {
    used = view->OnKeyDown(message.key, message.flags);
  } else {
    if (message.kind == Message::Kind::MouseMove && !HasCapture()) view->OnSetCursor();
    view->DispatchMessage(message);
  }
  if (self == nullptr) return used;
  --handlers;
  HandleLeftovers();
  return used;
}

void QtView::HandleLeftovers() {
  // What a gesture left in the queue goes the normal way once the gesture is over.
  const QPointer<QtView> self(this);
  while (self != nullptr && handlers == 0 && !waiting && view != nullptr && !queue.empty()) {
    const Message message = queue.front();
    queue.pop_front();
    Handle(message);
  }
}

void QtView::TakeMouse(Message::Kind kind, QMouseEvent& event) {
  Message message;
  message.kind = kind;
  const QPoint p = event.position().toPoint();
  message.point = {p.x(), p.y()};
  message.flags = ToFlags(event.buttons(), event.modifiers());
  Take(message);
  event.accept();
}

void QtView::TakePress(Message::Kind left, QMouseEvent& event) {
  const QPointer<QtView> self(this);
  pressedHere = true;
  const bool takes = event.button() == Qt::MiddleButton ||
                     (event.button() == Qt::LeftButton && hand == Hand::Ready);
  if (hand == Hand::Dragging) return event.accept();
  if (takes && view != nullptr && !waiting && !ModalLoop::IsRunning()) {
    TakeSurface(event.position().toPoint());
    return event.accept();
  }
  wasWithinEdge = false;
  if (event.button() == Qt::LeftButton) {
    TakeMouse(left, event);
  } else if (event.button() == Qt::RightButton) {
    TakeMouse(Message::Kind::RButtonDown, event);
  }
  if (self != nullptr) FollowButtons(QGuiApplication::mouseButtons());
}

void QtView::mousePressEvent(QMouseEvent* event) { TakePress(Message::Kind::LButtonDown, *event); }

void QtView::mouseReleaseEvent(QMouseEvent* event) {
  FollowButtons(event->buttons());
  if (hand == Hand::Dragging) {
    if (event->buttons() == Qt::NoButton) ShowHand(spaceHeld ? Hand::Ready : Hand::Away);
    return event->accept();
  }
  if (event->button() == Qt::LeftButton) {
    TakeMouse(Message::Kind::LButtonUp, *event);
  } else if (event->button() == Qt::RightButton) {
    TakeMouse(Message::Kind::RButtonUp, *event);
  }
}

void QtView::mouseDoubleClickEvent(QMouseEvent* event) {
  TakePress(Message::Kind::LButtonDblClk, *event);
}

/// A menu or a dialog that a press opened has taken the release for itself.
void QtView::FollowButtons(Qt::MouseButtons held) {
  if (held == Qt::NoButton) pressedHere = false;
}

void QtView::mouseMoveEvent(QMouseEvent* event) {
  if (hand != Hand::Dragging) return TakeMouse(Message::Kind::MouseMove, *event);
  event->accept();
  const QPoint way = event->position().toPoint() - taken;
  if (view != nullptr) view->ScrollTo(takenFrom - POINT{way.x(), way.y()});
}

void QtView::TakeSurface(QPoint at) {
  spaceUsed = true;
  taken = at;
  takenFrom = view->ShownPosition();
  view->OnMouseLeave();
  ShowHand(Hand::Dragging);
}

void QtView::ShowHand(Hand wanted) {
  if (wanted == hand) return;
  hand = wanted;
  switch (hand) {
    case Hand::Away: viewport()->setCursor(MakeCursor(cursor)); break;
    case Hand::Ready: viewport()->setCursor(Qt::OpenHandCursor); break;
    case Hand::Dragging: viewport()->setCursor(Qt::ClosedHandCursor); break;
  }
}

/// Space that is held makes the pointer a hand. One that was only hit is a key like others, when it
/// comes up.
bool QtView::TakeSpace(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Space || event.modifiers() != Qt::NoModifier) return false;
  if (waiting || view == nullptr || ModalLoop::IsRunning()) return false;
  if (event.isAutoRepeat()) {
    spaceUsed = true;
    return true;
  }
  spaceHeld = true;
  spaceUsed = hand == Hand::Dragging;
  if (hand == Hand::Away) ShowHand(Hand::Ready);
  return true;
}

void QtView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  teller->OnFocusChanged();
}

void QtView::focusOutEvent(QFocusEvent* event) {
  spaceHeld = false;
  ShowHand(Hand::Away);
  QAbstractScrollArea::focusOutEvent(event);
}

/// A gesture that comes to the edge of the window scrolls; one that begins there goes away from it
/// first, or out of the window.
void QtView::NoteEdge(POINT client) {
  const QRect whole = viewport()->rect();
  const bool within =
      EdgeStep(client.x, whole.width()) == 0 && EdgeStep(client.y, whole.height()) == 0;
  wasWithinEdge = wasWithinEdge || within;
  const bool scrolls = !within && (wasWithinEdge || !whole.contains(client.x, client.y));
  if (!scrolls) return edgeTimer.stop();
  if (!edgeTimer.isActive()) edgeTimer.start();
}

void QtView::ScrollAtEdge() {
  if (!waiting || view == nullptr || !HasCapture()) return edgeTimer.stop();
  const QRect whole = viewport()->rect();
  if (!view->OnScrollBy({EdgeStep(newest.x, whole.width()), EdgeStep(newest.y, whole.height())}))
    return;
  RepeatMove();
}

/// The pointer stands still, and yet another part of the surface lies under it.
void QtView::RepeatMove() {
  Message message;
  message.kind = Message::Kind::MouseMove;
  message.point = newest;
  message.flags = MK_LBUTTON | (shiftDown ? MK_SHIFT : 0U) | (altDown ? MK_ALT : 0U);
  queue.push_back(message);
}

void QtView::keyPressEvent(QKeyEvent* event) {
  if (TakeSpace(*event) || TakeMenuKey(*event)) return event->accept();
  Message message;
  message.kind = Message::Kind::KeyDown;
  message.key = ToVirtualKey(event->key());
  // Alone it is a key when it comes up.
  const bool isShiftSpace =
      event->key() == Qt::Key_Space && event->modifiers() == Qt::ShiftModifier;
  if (isShiftSpace) message.key = VirtualKey::Space;
  message.flags = ToFlags(QGuiApplication::mouseButtons(), event->modifiers());
  if (event->key() == Qt::Key_Shift) message.flags |= MK_SHIFT;
  // The one key that has the shift key in its own code.
  if (event->key() == Qt::Key_Backtab) message.flags |= MK_SHIFT;
  if (event->key() == Qt::Key_Alt) message.flags |= MK_ALT;
  event->setAccepted(Take(message));
}

/// The toolkit knows the key for menus only by itself.
bool QtView::TakeMenuKey(const QKeyEvent& event) {
  if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::ShiftModifier) return false;
  if (view != nullptr && !waiting && !HasCapture()) view->OnMenuKey();
  return true;
}

void QtView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Shift) shiftDown = false;
  if (event->key() == Qt::Key_Alt) altDown = false;
  event->ignore();
  if (event->key() != Qt::Key_Space || event->isAutoRepeat() || !spaceHeld) return;
  event->accept();
  spaceHeld = false;
  if (hand == Hand::Ready) ShowHand(Hand::Away);
  if (spaceUsed) return;
  Message message;
  message.kind = Message::Kind::KeyDown;
  message.key = VirtualKey::Space;
  Take(message);
}

bool QtView::focusNextPrevChild(bool) { return false; }

void QtView::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (!TakesWheel()) return;
  const QPoint angle = event->angleDelta();
  if (event->modifiers() & Qt::ControlModifier) {
    // The points of a gesture hold for the zoom at which it began.
    if (!waiting) ZoomByWheel(angle.y(), event->position());
    return;
  }
  const POINT before = view->ShownPosition();
  if (event->modifiers() & Qt::ShiftModifier) {
    view->OnWheel(ScrollBar::Horizontal, angle.x() + angle.y());
  } else {
    view->OnWheel(ScrollBar::Horizontal, angle.x());
    view->OnWheel(ScrollBar::Vertical, angle.y());
  }
  if (waiting && before != view->ShownPosition()) RepeatMove();
}

/// In a gesture the surface goes on under it, but not behind a menu or a dialog.
bool QtView::TakesWheel() const {
  if (view == nullptr || hand == Hand::Dragging) return false;
  return waiting ? HasCapture() : !ModalLoop::IsRunning();
}

void QtView::ZoomByWheel(int angle, QPointF at) {
  zoomRest += angle;
  const int steps = zoomRest / kWheelNotch;
  zoomRest -= steps * kWheelNotch;
  const QPoint place = at.toPoint();
  if (steps != 0) view->OnZoom(steps, {place.x(), place.y()});
}

void QtView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (waiting || view == nullptr || HasCapture()) return;
  const QPointer<QtView> self(this);
  if (event->reason() == QContextMenuEvent::Keyboard) {
    view->OnMenuKey();
  } else {
    view->OnContextMenu({event->globalX(), event->globalY()});
  }
  if (self != nullptr) FollowButtons(QGuiApplication::mouseButtons());
}

bool QtView::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) LoseCapture();
  if (event->type() == QEvent::ShortcutOverride && waiting) {
    // Within a gesture a key is a message of the gesture, not a command.
    event->accept();
    return true;
  }
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers held = key->modifiers();
    if (key->key() == Qt::Key_Space && (held == Qt::NoModifier || held == Qt::ShiftModifier)) {
      event->accept();
      return true;
    }
  }
  return QAbstractScrollArea::event(event);
}

bool QtView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const QPoint at = help->pos();
    const std::string tip = view != nullptr && !waiting ? view->TipAt({at.x(), at.y()}) : "";
    const QString shown = tip.empty() ? QString() : Qt::convertFromPlainText(ToQString(tip));
    QToolTip::showText(help->globalPos(), shown, viewport());
    return true;
  }
  if (event->type() == QEvent::Leave) {
    pointerInside = false;
    FollowButtons(QGuiApplication::mouseButtons());
    if (view != nullptr && !waiting && !HasCapture()) view->OnMouseLeave();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

void QtView::hideEvent(QHideEvent* event) {
  LoseCapture();
  QAbstractScrollArea::hideEvent(event);
}

void QtView::SetCapture() {
  captured = true;
  if (pressedHere || grabbed || !isVisible()) return;
  viewport()->grabMouse();
  grabbed = true;
}

void QtView::ReleaseCapture() {
  captured = false;
  if (grabbed) viewport()->releaseMouse();
  grabbed = false;
}

void QtView::LoseCapture() {
  if (captured) ReleaseCapture();
  Stir();
  if (view != nullptr && !waiting) view->OnMouseLeave();
}

bool QtView::HasCapture() const {
  if (!captured) return false;
  const QWidget* grabber = QWidget::mouseGrabber();
  if (grabber != nullptr && grabber != viewport()) return false;
  return QApplication::activePopupWidget() == nullptr &&
         QApplication::activeModalWidget() == nullptr;
}

POINT QtView::CursorPos() const {
  if (pointerInside || pressedHere) return pointer;
  const QPoint p = viewport()->mapFromGlobal(QCursor::pos());
  return {p.x(), p.y()};
}

bool QtView::IsShiftDown() const { return shiftDown; }

bool QtView::IsAltDown() const { return altDown; }

int QtView::DragDistance() const { return QApplication::startDragDistance(); }

void QtView::SetCursor(Cursor wanted) {
  if (wanted == cursor) return;
  cursor = wanted;
  if (hand == Hand::Away) viewport()->setCursor(MakeCursor(wanted));
}

POINT QtView::ClientToScreen(POINT p) const {
  const QPoint screen = viewport()->mapToGlobal(QPoint(p.x, p.y));
  return {screen.x(), screen.y()};
}

POINT QtView::ScreenToClient(POINT p) const {
  const QPoint client = viewport()->mapFromGlobal(QPoint(p.x, p.y));
  return {client.x(), client.y()};
}

}  // namespace morvane
