#include "shell/qt/DockTitle.h"

#include <algorithm>

#include <QApplication>
#include <QDockWidget>
#include <QStyle>
#include <QStyleOptionDockWidget>

namespace morvane {

void KeepTitleWhole(QDockWidget& pane) {
  constexpr int anyWidth = 1000;
  QStyleOptionDockWidget option;
  option.initFrom(&pane);
  option.rect = {0, 0, anyWidth, pane.fontMetrics().height() * 2};
  option.title = pane.windowTitle();
  option.closable = true;
  option.floatable = true;
  const QRect room =
      pane.style()->subElementRect(QStyle::SE_DockWidgetTitleBarText, &option, &pane);
  // The font of the title is the style's own.
  const int text = std::max(
      pane.fontMetrics().horizontalAdvance(option.title),
      QFontMetrics(QApplication::font("QDockWidgetTitle")).horizontalAdvance(option.title));
  const int margin = pane.fontMetrics().averageCharWidth();
  pane.widget()->setMinimumWidth(anyWidth - room.width() + text + margin);
}

}  // namespace morvane
