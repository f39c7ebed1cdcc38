#pragma once

#include <functional>
#include <vector>

#include <QDockWidget>

#include "machine/Problem.h"

class QTreeWidget;

namespace morvane {

/// The pane of the main window that lists what is wrong with the active chart. It comes by itself
/// with the first problem, unless the user has put it away.
class ProblemsPane : public QDockWidget {
  Q_OBJECT

 public:
  using OnChosen = std::function<void(const Problem& problem)>;

  /// `chosen` gets the problem of a row that the user clicks on or goes to by the keys.
  ProblemsPane(OnChosen chosen, QWidget* parent);

  /// Lists these problems and no others; the row that was chosen stays so if it is still there.
  void Show(const std::vector<Problem>& problems);
  /// The user wants the pane, or not.
  void ShowPart(bool show);
  QTreeWidget& Window() { return *list; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Appear();
  void Fill();
  void Choose(int row) const;

  OnChosen chosen;
  QTreeWidget* list;
  std::vector<Problem> problems;
  bool hasAppeared = false;
};

}  // namespace morvane
