#include "platform/qt/PartInterface.h"

#include <QTimer>
#include <QWindow>

#include "drawing/qt/QtText.h"
#include "platform/CScrollView.h"
#include "platform/qt/QtView.h"

namespace morvane {

PartInterface::PartInterface(QtView& view, ReadableParts::Key key) : view(&view), key(key) {}

ReadableParts* PartInterface::Parts() const {
  return view != nullptr && view->View() != nullptr ? view->View()->Parts() : nullptr;
}

ReadablePart PartInterface::Described() const {
  ReadablePart part;
  if (ReadableParts* parts = Parts()) parts->Describe(key, part);
  return part;
}

bool PartInterface::isValid() const {
  ReadableParts* parts = Parts();
  return parts != nullptr && parts->Has(key);
}

QWindow* PartInterface::window() const {
  return view != nullptr ? view->window()->windowHandle() : nullptr;
}

QAccessibleInterface* PartInterface::parent() const {
  return view != nullptr ? QAccessible::queryAccessibleInterface(view) : nullptr;
}

QString PartInterface::text(QAccessible::Text kind) const {
  switch (kind) {
    case QAccessible::Name: return ToQString(Described().name);
    case QAccessible::Description: return ToQString(Described().text);
    default: return {};
  }
}

QRect PartInterface::rect() const {
  if (!isValid()) return {};
  const RECT place = Described().place;
  return {view->viewport()->mapToGlobal(QPoint(place.left, place.top)),
          QSize(place.right - place.left, place.bottom - place.top)};
}

QAccessible::Role PartInterface::role() const {
  switch (Described().kind) {
    case ReadablePart::Kind::Comment: return QAccessible::Note;
    case ReadablePart::Kind::Label: return QAccessible::StaticText;
    case ReadablePart::Kind::Connection:
    case ReadablePart::Kind::Node: break;
  }
  return QAccessible::Graphic;
}

QAccessible::State PartInterface::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.focusable = true;
  state.selectable = true;
  state.multiSelectable = true;
  state.selected = Described().selected;
  state.focused = view->hasFocus() && Parts()->Current() == key;
  const QRect shown(view->viewport()->mapToGlobal(QPoint()), view->viewport()->size());
  state.offscreen = !shown.intersects(rect());
  state.invisible = !view->isVisible();
  return state;
}

void* PartInterface::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

QStringList PartInterface::actionNames() const {
  return {pressAction(), setFocusAction(), showMenuAction()};
}

void PartInterface::doAction(const QString& name) {
  if (!isValid() || !actionNames().contains(name)) return;
  if (name != showMenuAction()) {
    view->setFocus();
    Parts()->Choose(key);
    return;
  }
  // Whoever asks for the menu must not wait until it closes.
  QTimer::singleShot(0, view, [shown = view, part = key] {
    if (shown->View() == nullptr) return;
    if (ReadableParts* parts = shown->View()->Parts()) parts->ShowMenu(part);
  });
}

}  // namespace morvane
