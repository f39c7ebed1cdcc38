#pragma once

#include <functional>

#include <QWidget>

class QCheckBox;
class QLabel;
class QListWidget;

namespace morvane {

class ChartRun;

/// What the runs of a chart have reached, in figures, and a list of what they have not.
class CoverageView : public QWidget {
  Q_OBJECT

 public:
  explicit CoverageView(QWidget* parent);

  /// Null for no run.
  void Show(ChartRun* other);

 private:
  void Add(const QString& text, std::int32_t id);

  ChartRun* run = nullptr;
  QLabel* figures;
  QCheckBox* tint;
  QListWidget* list;
};

}  // namespace morvane
