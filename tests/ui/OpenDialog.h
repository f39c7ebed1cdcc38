#pragma once

#include <functional>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include "platform/UseService.h"
#include "platform/qt/QtDialogHost.h"
#include "platform/qt/QtDialogWindow.h"

/// Runs dialogs in their real windows for the length of a test.
class OpenDialog {
 public:
  /// Runs a dialog and `act` in it; what `act` leaves open is cancelled. True if OK closed it.
  bool Run(CDialog& dialog, const std::function<void(QtDialogWindow&)>& act) {
    QTimer::singleShot(0, [&] {
      auto* window = qobject_cast<QtDialogWindow*>(QApplication::activeModalWidget());
      QApplication::setActiveWindow(window);
      QApplication::processEvents();
      act(*window);
      if (dialog.IsOpen()) dialog.Click(IDCANCEL);
    });
    return dialog.DoModal();
  }
  template <class Widget>
  static Widget* Find(QtDialogWindow& window, int id) {
    return window.findChild<Widget*>(QStringLiteral("control%1").arg(id));
  }
  /// Types into what has the keyboard.
  static void Key(int key, const QString& text = {},
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
  }
  static void Type(const QString& text) {
    for (const QChar letter : text) Key(0, letter);
  }
  static int FocusId() {
    return QApplication::focusWidget()->objectName().remove("control").toInt();
  }

 private:
  QtDialogHost host;
  const UseService<DialogHost> use{host};
};
