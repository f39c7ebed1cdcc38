#include <gtest/gtest.h>

#include <QApplication>

#include "tests/support/TempFolder.h"
#include "tests/ui/LivingWindows.h"

using namespace morvane;

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // What a user left unsaved is nobody's business here.
  const TempFolder state;
  qputenv("XDG_STATE_HOME", QByteArray::fromStdString(state.Root().string()));
  QApplication application(argc, argv);
  QApplication::setApplicationName("Morvane");
  QApplication::setQuitOnLastWindowClosed(false);
  const NestedLoop::Member windows(LetWindowsLive);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
