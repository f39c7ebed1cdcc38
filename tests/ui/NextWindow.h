#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace morvane {

/// Does something in the modal window that opens next, and then closes it.
template <class Window, class Act>
void InNextWindow(Act act) {
  QTimer::singleShot(0, [act] {
    auto* window = dynamic_cast<Window*>(QApplication::activeModalWidget());
    ASSERT_NE(window, nullptr);
    QApplication::setActiveWindow(window);
    QApplication::processEvents();
    act(*window);
    window->close();
  });
}

}  // namespace morvane
