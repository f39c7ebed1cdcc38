#include "shell/qt/CommandMenu.h"

#include "drawing/qt/QtText.h"
#include "platform/Files.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/AllCommands.h"
#include "shell/qt/CommandTarget.h"

namespace morvane {

namespace {

constexpr int kMaxPathLetters = 60;

/// "&1 path", with the middle of a long path left out.
QString RecentText(std::size_t index, const std::string& path, const QFontMetrics& metrics) {
  QString text = metrics.elidedText(ShownPath(path), Qt::ElideMiddle,
                                    metrics.averageCharWidth() * kMaxPathLetters);
  text.replace('&', "&&");
  return QStringLiteral("&%1 %2").arg(index + 1).arg(text);
}

}  // namespace

CommandMenu::CommandMenu(const MenuPopup& popup, CommandTarget& target, QWidget* parent)
    : QMenu(FromUtf8(Translate(popup.title)), parent), target(target) {
  Build(popup.entries);
}

CommandMenu::CommandMenu(std::span<const MenuEntry> entries, CommandTarget& target, QWidget* parent)
    : QMenu(parent), target(target) {
  Build(entries);
}

void CommandMenu::Build(std::span<const MenuEntry> entries) {
  for (const MenuEntry& entry : entries) {
    if (entry.IsSeparator()) {
      addSeparator();
      continue;
    }
    if (entry.popup != nullptr) {
      addMenu(new CommandMenu(*entry.popup, target, this));
      continue;
    }
    QAction* action = AddCommand(entry.id, FromUtf8(MenuText(entry)));
    addAction(action);
    if (entry.id == ID_FILE_RECENT) recentPlace = action;
  }
  connect(this, &QMenu::aboutToShow, this, &CommandMenu::Refresh);
}

QAction* CommandMenu::AddCommand(unsigned id, const QString& text) {
  auto* action = new QAction(text, this);
  action->setData(id);
  action->setStatusTip(FromUtf8(Translate(FindCommand(id).prompt)));
  connect(action, &QAction::triggered, this, [this, id] { target.RunCommand(id); });
  return action;
}

void CommandMenu::Refresh() {
  if (recentPlace != nullptr) RefreshRecentFiles();
  for (QAction* action : actions()) {
    const unsigned id = action->data().toUInt();
    if (id == 0) continue;
    const CommandState state = target.StateOf(id);
    action->setEnabled(state.enabled);
    action->setCheckable(state.checked);
    action->setChecked(state.checked);
  }
}

void CommandMenu::RefreshRecentFiles() {
  qDeleteAll(recentEntries);
  recentEntries.clear();
  const std::vector<std::string>& paths = target.RecentPaths();
  recentPlace->setVisible(paths.empty());
  for (std::size_t i = 0; i < paths.size(); ++i) {
    QAction* action = AddCommand(ID_FILE_RECENT + static_cast<unsigned>(i),
                                 RecentText(i, paths[i], fontMetrics()));
    insertAction(recentPlace, action);
    recentEntries << action;
  }
}

}  // namespace morvane
