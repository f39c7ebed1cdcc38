#include "shell/qt/CommandBar.h"

#include <QAction>
#include <QEvent>

#include "drawing/qt/QtText.h"
#include "resources/Texts.h"
#include "shell/AllCommands.h"
#include "shell/qt/CommandIcons.h"
#include "shell/qt/CommandTarget.h"

namespace morvane {

namespace {

constexpr QSize kIconSize(18, 18);

}  // namespace

CommandBar::CommandBar(const QString& title, std::span<const unsigned> buttons,
                       CommandTarget& target, QWidget* parent)
    : QToolBar(title, parent), target(target) {
  setIconSize(kIconSize);
  for (const unsigned id : buttons) {
    if (id == 0) {
      addSeparator();
      continue;
    }
    const Command& command = FindCommand(id);
    const QString toolTip = FromUtf8(Translate(command.toolTip));
    QAction* action = addAction(toolTip);
    action->setData(id);
    action->setToolTip(toolTip);
    action->setStatusTip(FromUtf8(Translate(command.prompt)));
    connect(action, &QAction::triggered, this, [this, id] {
      this->target.RunCommand(id);
      Refresh();
    });
  }
  LoadIcons();
}

void CommandBar::LoadIcons() {
  for (QAction* action : actions()) {
    if (!action->isSeparator()) {
      action->setIcon(MakeCommandIcon(action->data().toUInt(), palette()));
    }
  }
}

void CommandBar::Refresh() {
  for (QAction* action : actions()) {
    if (action->isSeparator()) continue;
    const CommandState state = target.StateOf(action->data().toUInt());
    action->setEnabled(state.enabled);
    action->setCheckable(state.checked);
    action->setChecked(state.checked);
  }
}

void CommandBar::changeEvent(QEvent* event) {
  QToolBar::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) LoadIcons();
}

}  // namespace morvane
