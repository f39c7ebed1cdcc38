#pragma once

#include <vector>

#include <QDialog>

class QLabel;
class QVBoxLayout;
class RecoveryList;
struct RecoveryOffer;

/// Shows at the start what an earlier run left unsaved: a row with a picture for each chart, and
/// what can be done with it. It closes by itself when nothing is left.
class RecoveryWindow : public QDialog {
  Q_OBJECT

 public:
  /// The list has to outlive the window.
  explicit RecoveryWindow(RecoveryList& list, QWidget* parent = nullptr);

 private:
  using Action = bool (RecoveryList::*)(std::size_t);

  QWidget* MakeHead();
  QWidget* MakeRow(const RecoveryOffer& offer);
  QWidget* MakePicture(const RecoveryOffer& offer);
  void AddButton(QVBoxLayout& column, QWidget& row, const char* text, Action action);
  QWidget* MakeFoot();
  void Do(QWidget& row, Action action);
  void RecoverAll();
  /// Takes the rows off whose offers are done.
  void Remove(std::size_t index);

  RecoveryList& list;
  QVBoxLayout* rowLayout = nullptr;
  std::vector<QWidget*> rows;  ///< as the offers of the list
};
