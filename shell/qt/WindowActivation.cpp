#include "shell/qt/WindowActivation.h"

#include <QApplication>
#include <QWidget>

#include "shell/InstanceRequest.h"
#include "shell/qt/DesktopSession.h"

namespace morvane {

void BringForward(QWidget& window, const InstanceRequest& start) {
  if (window.isMinimized()) window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  QWidget* modal = QApplication::activeModalWidget();
  QWidget& front = modal != nullptr ? *modal->window() : window;
  // The toolkit takes the token of a Wayland session from there, once.
  if (!start.activationToken.empty()) {
    qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(start.activationToken));
  }
  front.raise();
  front.activateWindow();
  AskDesktopForward(front, start);
}

}  // namespace morvane
