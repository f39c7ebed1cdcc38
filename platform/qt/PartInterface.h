#pragma once

#include <QAccessibleInterface>
#include <QPointer>

#include "platform/ReadableParts.h"

namespace morvane {

class QtView;

/// A part of what a view paints, for assistive technologies. It knows the part by its key and asks
/// anew each time, so that it outlives the part, its chart and its window, and then is not valid.
class PartInterface : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  PartInterface(QtView& view, ReadableParts::Key key);

  ReadableParts::Key Key() const { return key; }

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  /// It can be selected, by two names, and shows its menu.
  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  ReadableParts* Parts() const;
  ReadablePart Described() const;

  QPointer<QtView> view;
  ReadableParts::Key key;
};

}  // namespace morvane
