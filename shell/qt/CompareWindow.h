#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QDialog>

#include "review/DiffRows.h"

class QIcon;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace morvane {

class ChartComparison;
class DiffPicture;
class DiffPictureView;
struct ObjectChange;

/// What differs between two versions of a chart: a picture of both, and a list whose rows lead to
/// the places in it. It stays beside the chart, of which it knows nothing further.
class CompareWindow : public QDialog {
  Q_OBJECT

 public:
  /// Hears of an object that was clicked on in the list, and is in the newer version.
  using Chosen = std::function<void(std::int32_t id, const std::string& keyword)>;

  /// The comparison has something to show. The window deletes itself when it is closed.
  CompareWindow(std::unique_ptr<ChartComparison> comparison, Chosen chosen, QWidget* parent);
  ~CompareWindow() override;

  QTreeWidget& List() { return *list; }
  DiffPictureView& View() { return *view; }

 private:
  void CreateBar();
  void AddTool(const char* text, const char* icon, void (DiffPictureView::*run)());
  void FillList();
  void AddRow(const DiffRow& row);
  void Choose(QTreeWidgetItem* item);

  std::unique_ptr<ChartComparison> comparison;
  std::unique_ptr<DiffPicture> picture;
  std::vector<DiffRow> rows;
  Chosen chosen;
  QToolBar* bar;
  DiffPictureView* view;
  QTreeWidget* list;
};

}  // namespace morvane
