#include "fuzz/qt/Application.h"

#include <QApplication>

#include "tests/ui/LivingWindows.h"

namespace morvane {

namespace {

void IgnoreMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  // What the toolkit grumbles about is no fault of ours, unless it gives up.
  if (type == QtFatalMsg) qFatal("%s", qPrintable(text));
}

}  // namespace

void StartToolkit() {
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  static const QApplication* application = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(IgnoreMessage);
    auto* made = new QApplication(count, arguments);
    QApplication::setApplicationName("Morvane");
    QApplication::setQuitOnLastWindowClosed(false);
    static const NestedLoop::Member windows(LetWindowsLive);
    return made;
  }();
  static_cast<void>(application);
}

}  // namespace morvane
