#pragma once

#include <functional>
#include <vector>

#include <QScrollArea>

class QPushButton;
class QVBoxLayout;

namespace morvane {

class ChartRun;

/// A button for every event of a simulated chart, those first that would be accepted now.
class EventButtons : public QScrollArea {
  Q_OBJECT

 public:
  EventButtons(std::function<void(int event)> send, QWidget* parent);

  /// Null for no simulation.
  void Show(const ChartRun* run);

 private:
  QPushButton* ButtonAt(std::size_t place);

  std::function<void(int event)> send;
  QWidget* inner;
  QVBoxLayout* rows;
  std::vector<QPushButton*> buttons;
  std::vector<int> events;  ///< of each button that shows
};

}  // namespace morvane
