#include "shell/qt/CDragToolBar.h"

#include <QAction>
#include <QMouseEvent>
#include <QTimer>

#include "resources/CommandIds.h"
#include "shell/qt/CommandTarget.h"

namespace morvane {

namespace {

/// A movement of so many pixels, across and down added up, makes a drag of a press.
constexpr int kDragDistance = 3;

}  // namespace

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
      return OnPress(watched, mouse->globalPosition().toPoint());
    }
    case QEvent::MouseMove:
      OnMove(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      break;
    default: break;
  }
  return CommandBar::eventFilter(watched, event);
}

bool CDragToolBar::OnPress(const QObject* button, QPoint place) {
  for (QAction* action : actions()) {
    if (widgetForAction(action) != button || action->isSeparator()) continue;
    const unsigned id = action->data().toUInt();
    if (action->isEnabled()) {
      pressPoint = place;
      Run(id);
    }
    return true;
  }
  return false;
}

void CDragToolBar::OnMove(QPoint place) {
  if (!pressPoint || (place - *pressPoint).manhattanLength() < kDragDistance) return;
  pressPoint.reset();
  Run(ID_TOOL_DRAG_STARTED);
}

void CDragToolBar::Run(unsigned id) {
  const bool isTool = id == ID_TOOL_DRAG_STARTED || (id >= ID_TOOL_STATE && id <= ID_TOOL_LINE);
  if (isTool) {
    // At once, before the movement that follows the press.
    Target().RunCommand(id);
  } else {
    // Behind the press: the command may open a box, which must not find the button down.
    QTimer::singleShot(0, this, [this, id] { Target().RunCommand(id); });
  }
}

}  // namespace morvane
