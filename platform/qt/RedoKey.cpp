#include "platform/qt/RedoKey.h"

#include <QKeyEvent>
#include <QMetaObject>
#include <QWidget>

namespace morvane {

RedoKey::RedoKey(QWidget* box) : QObject(box) { box->installEventFilter(this); }

bool RedoKey::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (!isKey) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_Y || key.modifiers() != Qt::ControlModifier) return false;
  // The window behind the box may have a command by that key: the box comes first.
  event->accept();
  return event->type() == QEvent::ShortcutOverride || QMetaObject::invokeMethod(watched, "redo");
}

}  // namespace morvane
