#pragma once

#include "platform/UseService.h"
#include "platform/qt/QtDialogHost.h"
#include "platform/qt/QtDialogWindow.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

/// Runs dialogs in their real windows for the length of a test.
class OpenDialog {
 public:
  /// Runs a dialog and `act` in it; what `act` leaves open is cancelled. True if OK closed it.
  bool Run(Dialog& dialog, const std::function<void(QtDialogWindow&)>& act) {
    InNextWindow<QtDialogWindow>([&](QtDialogWindow& window) {
      act(window);
      dialog.Click(IDCANCEL);
    });
    return dialog.DoModal();
  }
  template <class Widget>
  static Widget* Find(QtDialogWindow& window, int id) {
    return window.findChild<Widget*>(QStringLiteral("control%1").arg(id));
  }
  static void Click(QtDialogWindow& window, int id) { Find<QAbstractButton>(window, id)->click(); }
  /// Types into what has the keyboard.
  static void Key(int key, const QString& text = {},
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    SendKey(*QApplication::focusWidget(), key, text, modifiers);
  }
  static void Type(const QString& text) {
    for (const QChar letter : text) Key(0, letter);
  }
  /// Types into a control.
  static void TypeInto(QtDialogWindow& window, int id, const QString& text) {
    window.FocusOn(id);
    Type(text);
  }
  static int FocusId() {
    return QApplication::focusWidget()->objectName().remove("control").toInt();
  }

 private:
  QtDialogHost host;
  const UseService<DialogHost> use{host};
};

}  // namespace morvane
