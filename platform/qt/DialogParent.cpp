#include "platform/qt/DialogParent.h"

#include <QApplication>
#include <QMainWindow>

namespace morvane {

QWidget* DialogParent() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* active = QApplication::activeWindow();
  // The splash goes when its time is up, and would take along what is on top of it.
  if (active != nullptr && active->windowType() != Qt::SplashScreen) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

}  // namespace morvane
