#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QDockWidget>

#include "machine/Problem.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace morvane {

/// The pane of the main window that lists what is wrong with the active chart. It comes by itself
/// with the first problem, unless the user has put it away.
class ProblemsPane : public QDockWidget {
  Q_OBJECT

 public:
  /// Who hears of what the user does with a row, and knows what would put a problem right; that is
  /// asked of the rows alone that show, each time they do.
  struct Callbacks {
    std::function<std::string(const Problem&)> fixFor;  ///< gives an empty text for nothing plain
    std::function<void(const Problem&)> chosen;  ///< it was clicked on, or gone to by the keys
    std::function<void(const Problem&)> fix;     ///< it is to be put right
  };

  ProblemsPane(Callbacks callbacks, QWidget* parent);

  /// Lists these problems and no others; the row that was chosen stays so if it is still there.
  void Show(const std::vector<Problem>& shown);
  /// The user wants the pane, or not.
  void ShowPart(bool show);
  QTreeWidget& Window() { return *list; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Appear();
  void Fill();
  void AddRow(const Problem& problem);
  /// Null for no item.
  const Problem* ProblemOf(QTreeWidgetItem* item) const;
  void Choose(QTreeWidgetItem* item) const;
  void Click(QTreeWidgetItem* item, int column) const;
  void ShowMenu(const QPoint& place);

  Callbacks callbacks;
  QTreeWidget* list;
  std::vector<Problem> problems;
  bool hasAppeared = false;
};

}  // namespace morvane
