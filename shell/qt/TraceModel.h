#pragma once

#include <cstddef>
#include <optional>

#include <QAbstractListModel>

namespace morvane {

class Run;

/// The lines of a run, for a list. What lies behind the place that the run shows is grey.
class TraceModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  /// Shows a run as it is now; null for none. It has to outlive its showing.
  void Show(const Run* other);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::optional<std::size_t> PartingPlace() const;

  const Run* run = nullptr;
  int rows = 0;
};

}  // namespace morvane
