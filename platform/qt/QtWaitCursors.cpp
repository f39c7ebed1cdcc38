#include "platform/qt/QtWaitCursors.h"

#include <QCursor>
#include <QGuiApplication>

namespace morvane {

void QtWaitCursors::Begin() {
  if (qGuiApp != nullptr) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtWaitCursors::End() {
  if (qGuiApp != nullptr) QGuiApplication::restoreOverrideCursor();
}

}  // namespace morvane
