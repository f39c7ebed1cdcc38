#pragma once

#include <QPoint>

#include "shell/qt/CommandBar.h"

namespace morvane {

/// The bar of the drawing tools. A click chooses a tool, or puts it away again; a double click
/// keeps it for several objects; and a drag takes it to the chart in one movement. The other
/// buttons act at the press.
class CDragToolBar : public CommandBar {
  Q_OBJECT

 public:
  CDragToolBar(const QString& title, std::span<const unsigned> buttons, CommandTarget& target,
               QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool OnPress(const QObject* button, QPoint place);
  void OnMove(QPoint place);
  bool OnRelease();
  void Choose(unsigned tool);

  unsigned pressed = 0;  ///< the tool, while its press may become a click or a drag; mostly 0
  bool again = false;    ///< the press was the second one of a double click
  QPoint pressPoint;     ///< on the screen
};

}  // namespace morvane
