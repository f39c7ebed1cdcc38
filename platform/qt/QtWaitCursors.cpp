#include "platform/qt/QtWaitCursors.h"

#include <QCursor>
#include <QGuiApplication>

void QtWaitCursors::Begin() {
  if (qGuiApp != nullptr) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtWaitCursors::End() {
  if (qGuiApp != nullptr) QGuiApplication::restoreOverrideCursor();
}
