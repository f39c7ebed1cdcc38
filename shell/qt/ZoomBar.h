#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace morvane {

class CommandTarget;

/// The zoom of the active chart in the status line: a slider, and the number in per cent.
class ZoomBar : public QWidget {
  Q_OBJECT

 public:
  ZoomBar(CommandTarget& target, QWidget* parent);

  /// Shows the zoom that the target has now, or nothing without a chart.
  void Refresh();

 private:
  CommandTarget& target;
  QSlider* slider;
  QLabel* number;
};

}  // namespace morvane
