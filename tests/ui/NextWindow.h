#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

/// Does something in the modal window that opens next, and then closes it.
template <class Window, class Act>
void InNextWindow(Act act) {
  QTimer::singleShot(0, [act] {
    auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
    ASSERT_NE(window, nullptr);
    QApplication::processEvents();
    act(*window);
    window->close();
  });
}
