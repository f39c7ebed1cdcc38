#pragma once

#include <functional>
#include <string>

#include <QTreeWidget>

namespace morvane {

class ChartRun;

/// The variables of a simulated chart, whose values can be changed where they stand.
class VariableTable : public QTreeWidget {
  Q_OBJECT

 public:
  using Assign = std::function<void(const std::string& name, const std::string& value)>;

  VariableTable(Assign assign, QWidget* parent);

  /// Null for none.
  void Show(const ChartRun* run);

 private:
  void Take(QTreeWidgetItem* item, int column);

  Assign assign;
};

}  // namespace morvane
