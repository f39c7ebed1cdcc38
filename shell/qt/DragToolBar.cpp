#include "shell/qt/DragToolBar.h"

#include <QActionEvent>
#include <QMouseEvent>
#include <QTimer>

#include "resources/CommandIds.h"
#include "shell/qt/CommandTarget.h"

namespace {

/// A movement of so many pixels, across and down added up, makes a drag of a press.
constexpr int kDragDistance = 3;

}  // namespace

void DragToolBar::actionEvent(QActionEvent* event) {
  CommandBar::actionEvent(event);
  if (event->type() != QEvent::ActionAdded) return;
  if (QWidget* button = widgetForAction(event->action())) button->installEventFilter(this);
}

bool DragToolBar::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() != Qt::LeftButton) break;
      return OnPress(static_cast<QWidget*>(watched), mouse->globalPosition().toPoint());
    }
    case QEvent::MouseMove:
      OnMove(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      break;
    default: break;
  }
  return CommandBar::eventFilter(watched, event);
}

bool DragToolBar::OnPress(QWidget* button, QPoint place) {
  for (QAction* action : actions()) {
    if (widgetForAction(action) != button || action->isSeparator()) continue;
    const unsigned id = action->data().toUInt();
    if (action->isEnabled()) {
      pressPoint = place;
      // Behind the press: a command may open a box, which must not find the button down.
      QTimer::singleShot(0, this, [this, id] { Target().RunCommand(id); });
    }
    return true;
  }
  return false;
}

void DragToolBar::OnMove(QPoint place) {
  if (!pressPoint || (place - *pressPoint).manhattanLength() < kDragDistance) return;
  pressPoint.reset();
  QTimer::singleShot(0, this, [this] { Target().RunCommand(ID_TOOL_DRAG_STARTED); });
}
