#pragma once

#include <optional>

#include <QPoint>

#include "shell/qt/CommandBar.h"

namespace morvane {

/// The bar of the drawing tools. A button acts at the press, so that a tool can be dragged from the
/// bar to the chart in one movement.
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
  void Run(unsigned id);

  std::optional<QPoint> pressPoint;  ///< on the screen, while a press may become a drag
};

}  // namespace morvane
