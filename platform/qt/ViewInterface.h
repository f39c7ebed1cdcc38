#pragma once

#include <unordered_map>

#include <QAccessibleWidget>

#include "platform/ReadableParts.h"

namespace morvane {

class QtView;

/// A view for assistive technologies: what it paints are its children, in reading order.
class ViewInterface : public QAccessibleWidget {
 public:
  /// Makes one for each view that somebody asks about, from the first call on.
  static void Install();

  explicit ViewInterface(QtView& view);
  ~ViewInterface() override;

  QString text(QAccessible::Text kind) const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int indexOfChild(const QAccessibleInterface* part) const override;
  QAccessibleInterface* focusChild() const override;

  /// The interface of a part, which stays the same for as long as the view lives; null for no part.
  QAccessibleInterface* Of(ReadableParts::Key key) const;
  /// The same if somebody has asked for it before, else null.
  QAccessibleInterface* Known(ReadableParts::Key key) const;

 private:
  QtView& View() const;
  ReadableParts* Parts() const;

  mutable std::unordered_map<ReadableParts::Key, QAccessible::Id> ids;
};

}  // namespace morvane
