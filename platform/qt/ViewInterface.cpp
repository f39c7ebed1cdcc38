#include "platform/qt/ViewInterface.h"

#include <algorithm>

#include "drawing/qt/QtText.h"
#include "platform/CScrollView.h"
#include "platform/qt/PartInterface.h"
#include "platform/qt/QtView.h"

namespace morvane {

void ViewInterface::Install() {
  static const bool installed = [] {
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
      auto* view = qobject_cast<QtView*>(object);
      return view != nullptr ? new ViewInterface(*view) : nullptr;
    });
    return true;
  }();
  static_cast<void>(installed);
}

ViewInterface::ViewInterface(QtView& view) : QAccessibleWidget(&view, QAccessible::Canvas) {}

ViewInterface::~ViewInterface() {
  for (const auto& [key, id] : ids) QAccessible::deleteAccessibleInterface(id);
}

QtView& ViewInterface::View() const { return *static_cast<QtView*>(widget()); }

ReadableParts* ViewInterface::Parts() const {
  CScrollView* view = View().View();
  return view != nullptr ? view->Parts() : nullptr;
}

QString ViewInterface::text(QAccessible::Text kind) const {
  ReadableParts* parts = Parts();
  if (kind == QAccessible::Name && parts != nullptr) return ToQString(parts->Name());
  return QAccessibleWidget::text(kind);
}

int ViewInterface::childCount() const {
  ReadableParts* parts = Parts();
  return parts != nullptr ? static_cast<int>(parts->Keys().size()) : 0;
}

QAccessibleInterface* ViewInterface::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  return Of(Parts()->Keys()[static_cast<std::size_t>(index)]);
}

QAccessibleInterface* ViewInterface::childAt(int x, int y) const {
  ReadableParts* parts = Parts();
  const QPoint client = View().viewport()->mapFromGlobal(QPoint(x, y));
  if (parts == nullptr || !View().viewport()->rect().contains(client)) return nullptr;
  return Of(parts->At({client.x(), client.y()}));
}

int ViewInterface::indexOfChild(const QAccessibleInterface* part) const {
  ReadableParts* parts = Parts();
  const auto* known = dynamic_cast<const PartInterface*>(part);
  if (parts == nullptr || known == nullptr) return -1;
  const auto& keys = parts->Keys();
  const auto found = std::ranges::find(keys, known->Key());
  return found != keys.end() ? static_cast<int>(found - keys.begin()) : -1;
}

QAccessibleInterface* ViewInterface::focusChild() const {
  ReadableParts* parts = Parts();
  if (parts == nullptr || !View().hasFocus()) return QAccessibleWidget::focusChild();
  return Of(parts->Current());
}

QAccessibleInterface* ViewInterface::Known(ReadableParts::Key key) const {
  const auto found = ids.find(key);
  return found != ids.end() ? QAccessible::accessibleInterface(found->second) : nullptr;
}

QAccessibleInterface* ViewInterface::Of(ReadableParts::Key key) const {
  if (key == ReadableParts::kNone) return nullptr;
  if (QAccessibleInterface* known = Known(key)) return known;
  auto* made = new PartInterface(View(), key);
  ids[key] = QAccessible::registerAccessibleInterface(made);
  return made;
}

}  // namespace morvane
