#include "platform/qt/QtDialogHost.h"

#include "platform/qt/DialogParent.h"
#include "platform/qt/QtDialogWindow.h"

void QtDialogHost::Run(CDialog& dialog) {
  QtDialogWindow window(dialog, DialogParent());
  window.exec();
  // The program may end under an open dialog.
  if (dialog.IsOpen()) dialog.Click(IDCANCEL);
}
