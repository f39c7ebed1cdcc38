#pragma once

#include <memory>

#include <QApplication>
#include <QBackingStore>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

namespace morvane {

// What a hand does with a widget, at places of the widget, and what an eye sees of a window.

/// The pixels that stand on the screen, whatever a repaint would show.
inline QImage OnScreen(const QWidget& window) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
  return dynamic_cast<const QImage&>(*window.backingStore()->paintDevice()).copy();
}

/// With no button a move is one of a free pointer.
inline std::unique_ptr<QMouseEvent> MouseEvent(QWidget& widget, QEvent::Type type, QPoint place,
                                               Qt::MouseButton button = Qt::LeftButton,
                                               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const auto changed = type == QEvent::MouseMove ? Qt::NoButton : button;
  const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
  return std::make_unique<QMouseEvent>(type, place, widget.mapToGlobal(place), changed, held,
                                       modifiers);
}

template <class... Rest>
void SendMouse(QWidget& widget, QEvent::Type type, QPoint place, Rest... rest) {
  QCoreApplication::sendEvent(&widget, MouseEvent(widget, type, place, rest...).get());
}

/// The event waits in the queue, as for a loop that a press opens.
template <class... Rest>
void PostMouse(QWidget& widget, QEvent::Type type, QPoint place, Rest... rest) {
  QCoreApplication::postEvent(&widget, MouseEvent(widget, type, place, rest...).release());
}

inline void SendKey(QWidget& widget, int key, const QString& text = {},
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QCoreApplication::sendEvent(&widget, &press);
}

inline void PostKey(QWidget& widget, int key) {
  QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
}

/// Runs the loop until something holds. A dispatcher may go on sleeping when what was posted has
/// made it hold, so there is always something to wake it.
template <class Condition>
void RunUntil(const Condition& holds) {
  QTimer awake;
  awake.start(1);
  while (!holds()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace morvane
