#include "platform/qt/QtDialogHost.h"

#include "platform/qt/DialogParent.h"
#include "platform/qt/QtDialogWindow.h"

namespace morvane {

void QtDialogHost::Run(Dialog& dialog) {
  QtDialogWindow window(dialog, DialogParent());
  window.exec();
  // The program may end under an open dialog.
  if (dialog.IsOpen()) dialog.Click(IDCANCEL);
}

}  // namespace morvane
