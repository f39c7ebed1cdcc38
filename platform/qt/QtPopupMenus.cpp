#include "platform/qt/QtPopupMenus.h"

#include <QMenu>

#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

void Fill(QMenu& menu, const std::vector<PopupMenus::Item>& items) {
  for (const PopupMenus::Item& item : items) {
    if (item.IsSeparator()) {
      menu.addSeparator();
      continue;
    }
    if (!item.popup.empty()) {
      Fill(*menu.addMenu(ToQString(item.text)), item.popup);
      continue;
    }
    QAction* action = menu.addAction(ToQString(item.text));
    action->setData(item.id);
    action->setEnabled(item.state.enabled);
    action->setCheckable(item.state.checked);
    action->setChecked(item.state.checked);
  }
}

}  // namespace

unsigned QtPopupMenus::Track(const std::vector<Item>& items, POINT screen) {
  QMenu menu;
  Fill(menu, items);
  const QAction* chosen = menu.exec(QPoint(screen.x, screen.y));
  return chosen != nullptr ? chosen->data().toUInt() : 0;
}

}  // namespace morvane
