#include "platform/qt/QtPopupMenus.h"

#include <QMenu>

#include "drawing/qt/QtText.h"

namespace morvane {

unsigned QtPopupMenus::Track(const std::vector<Item>& items, POINT screen) {
  QMenu menu;
  for (const Item& item : items) {
    if (item.id == 0) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(ToQString(item.text));
    action->setData(item.id);
    action->setEnabled(item.state.enabled);
    action->setCheckable(item.state.checked);
    action->setChecked(item.state.checked);
  }
  const QAction* chosen = menu.exec(QPoint(screen.x, screen.y));
  return chosen != nullptr ? chosen->data().toUInt() : 0;
}

}  // namespace morvane
