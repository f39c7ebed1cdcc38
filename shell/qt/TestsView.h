#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace morvane {

class ChartRun;

/// The tests beside a chart with what came of them; and a button that makes a case of the run.
class TestsView : public QWidget {
  Q_OBJECT

 public:
  explicit TestsView(QWidget* parent);

  /// Null for no run.
  void Show(ChartRun* other);
  /// Runs all tests and shows their results.
  void Execute();

 private:
  void Record();

  ChartRun* run = nullptr;
  QTreeWidget* list;
  QLabel* summary;
  QPushButton* execute;
  QPushButton* record;
};

}  // namespace morvane
