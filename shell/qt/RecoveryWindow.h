#pragma once

#include <map>

#include <QDialog>

#include "shell/RecoveryList.h"

class QScrollArea;
class QPushButton;

namespace morvane {

/// Lists at the start what can be recovered. It closes by itself when all of it is done.
class RecoveryWindow : public QDialog {
  Q_OBJECT

 public:
  /// The list has to outlive the window, and has something in it.
  explicit RecoveryWindow(RecoveryList& list, QWidget* parent = nullptr);

 private:
  using Action = void (RecoveryList::*)(int id);

  QWidget* MakeHead();
  QWidget* MakeRows();
  QWidget* MakeRow(const RecoveryList::Row& row);
  QWidget* MakeTexts(const RecoveryList::Row& row);
  QWidget* MakeRowButtons(const RecoveryList::Row& row);
  QWidget* MakeFoot();
  void FitToScreen();
  void Do(Action action, int id);
  void RecoverAll();
  /// Takes the rows away that are done.
  void Refresh();

  RecoveryList& list;
  struct ShownRow {
    QWidget* whole;
    QWidget* line;  ///< below it
  };
  QScrollArea* area = nullptr;
  QPushButton* recoverAll = nullptr;
  std::map<int, ShownRow> rows;  ///< by the rows' ids
};

}  // namespace morvane
