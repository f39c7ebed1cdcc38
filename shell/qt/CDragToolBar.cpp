#include "shell/qt/CDragToolBar.h"

#include <utility>

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include "resources/CommandIds.h"
#include "shell/qt/CommandTarget.h"

namespace morvane {

CDragToolBar::CDragToolBar(const QString& title, std::span<const unsigned> buttons,
                           CommandTarget& target, QWidget* parent)
    : CommandBar(title, buttons, target, parent) {
  for (QAction* action : actions()) {
    if (!action->isSeparator()) widgetForAction(action)->installEventFilter(this);
  }
}

bool CDragToolBar::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() != Qt::LeftButton) break;
      again = event->type() == QEvent::MouseButtonDblClick;
      return OnPress(watched, mouse->globalPosition().toPoint());
    }
    case QEvent::MouseMove:
      OnMove(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      break;
    case QEvent::MouseButtonRelease:
      if (pressed != 0) return OnRelease();
      break;
    default: break;
  }
  return CommandBar::eventFilter(watched, event);
}

bool CDragToolBar::OnPress(const QObject* button, QPoint place) {
  for (QAction* action : actions()) {
    if (widgetForAction(action) != button || action->isSeparator()) continue;
    const unsigned id = action->data().toUInt();
    if (!action->isEnabled()) return true;
    if (id >= ID_TOOL_STATE && id <= ID_TOOL_LINE) {
      pressed = id;
      pressPoint = place;
    } else {
      // Behind the press: the command may open a box, which must not find the button down.
      QTimer::singleShot(0, this, [this, id] { Target().RunCommand(id); });
    }
    return true;
  }
  return false;
}

void CDragToolBar::OnMove(QPoint place) {
  const bool drags = (place - pressPoint).manhattanLength() >= QApplication::startDragDistance();
  if (pressed == 0 || !drags) return;
  Choose(std::exchange(pressed, 0));
  Target().RunCommand(ID_TOOL_DRAG_STARTED);
  Refresh();
}

bool CDragToolBar::OnRelease() {
  const unsigned id = std::exchange(pressed, 0);
  if (again) {
    Choose(id);
    Target().RunCommand(ID_TOOL_KEEP);
  } else {
    Target().RunCommand(id);
  }
  Refresh();
  return true;
}

/// The command of a tool that is chosen would put it away.
void CDragToolBar::Choose(unsigned tool) {
  if (!Target().StateOf(tool).checked) Target().RunCommand(tool);
}

}  // namespace morvane
