#pragma once

#include <span>

#include <QMenu>
#include <QPointer>

#include "shell/MenuTable.h"

namespace morvane {

class CommandTarget;

/// A popup of the menu tables. Its entries are made up to date each time that it opens.
class CommandMenu : public QMenu {
  Q_OBJECT

 public:
  CommandMenu(const MenuPopup& popup, CommandTarget& target, QWidget* parent);
  CommandMenu(std::span<const MenuEntry> entries, CommandTarget& target, QWidget* parent);

  /// Enables and marks the entries, and fills in the recent files.
  void Refresh();

 private:
  void Build(std::span<const MenuEntry> entries);
  QAction* AddCommand(unsigned id, const QString& text);
  void RefreshRecentFiles();

  CommandTarget& target;
  QAction* recentPlace = nullptr;  ///< the entry that stands where the recent files go
  QList<QAction*> recentEntries;
};

}  // namespace morvane
