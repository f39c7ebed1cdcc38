#pragma once

#include <functional>

#include <QDockWidget>
#include <QPointer>

class QLabel;
class QListView;
class QTabWidget;

namespace morvane {

class ChartRun;
class CommandTarget;
class CoverageView;
class EventButtons;
class RunControls;
class TestsView;
class TraceModel;
class VariableTable;

/// The pane of the main window that drives the run of the active chart. It is there as long as
/// there is one; closing it ends the run.
class RunPane : public QDockWidget {
  Q_OBJECT

 public:
  /// `ended`: the user has closed the pane.
  RunPane(CommandTarget& target, std::function<void()> ended, QWidget* parent);

  /// Comes in front of another pane, which is afterwards as wide as it was before.
  void ShareWith(QDockWidget& other);
  /// Shows a run as it is now; null for none, which hides the pane.
  void Show(ChartRun* other);
  /// What takes the keys when the user comes to the pane.
  QWidget& Window();
  /// Brings the tests forward and runs them.
  void ExecuteTests();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* MakeEventsPage();
  QWidget* MakeTracePage();
  void Appear();
  void Leave();
  void Forget();
  void ShowPlace();
  void ShowPage();

  std::function<void()> ended;
  ChartRun* run = nullptr;
  QPointer<QDockWidget> neighbour;  ///< what shares its place
  int formerWidth = 0;              ///< of that; 0 if it was hidden
  RunControls* controls;
  QTabWidget* pages;
  QLabel* place;
  EventButtons* events;
  QLabel* queue;
  VariableTable* variables;
  TraceModel* trace;
  QListView* lines;
  CoverageView* coverage;
  TestsView* tests;
};

}  // namespace morvane
