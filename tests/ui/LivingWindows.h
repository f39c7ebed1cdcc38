#pragma once

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include "platform/qt/QtView.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

/// What goes on with the windows on the screen while a box waits: they are resized, repainted and
/// get their events.
inline void LetWindowsLive() {
  constexpr QSize smaller(9, 7);
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
  QList<QPointer<QWidget>> living(windows.begin(), windows.end());
  for (const auto& window : living) {
    if (window == nullptr) continue;
    const QSize size = window->size();
    window->resize(size - smaller);
    for (QtView* view : window->findChildren<QtView*>()) view->InvalidateAll();
    window->repaint();
    QApplication::processEvents();
    if (window != nullptr) window->resize(size);
  }
  QApplication::processEvents();
}

}  // namespace morvane
