#pragma once

#include <string>
#include <vector>

#include <QObject>

#include "platform/qt/DialogWidget.h"

class QTreeWidget;

namespace morvane {

/// A list of rows of which several can be selected. The selection shows without the keyboard too.
class RowList : public QObject, public DialogWidget {
  Q_OBJECT

 public:
  RowList(const DialogControl& control, QWidget* parent, OnClick onClick);

  QWidget* Widget() override;
  void Take(DialogControl& control) override;
  void Show(const DialogControl& control) override;

 protected:
  /// A click counts even where it selects nothing new.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetColumns(const std::vector<DialogControl::Column>& columns);
  void Fill(const std::vector<std::vector<std::string>>& newRows);
  void Select(const std::vector<int>& selected);
  std::vector<int> SelectedRows() const;

  QTreeWidget* list;
  OnClick onClick;
  std::vector<std::vector<std::string>> rows;
  bool showing = false;  ///< the program changes the list, not the user
};

}  // namespace morvane
