#include "shell/qt/TraceModel.h"

#include <algorithm>
#include <limits>

#include <QApplication>
#include <QPalette>
#include <QStyle>

#include "drawing/qt/QtText.h"
#include "simulation/Replay.h"
#include "simulation/Run.h"

namespace morvane {

void TraceModel::Show(const Run* other) {
  const std::size_t size = other != nullptr ? other->History().Size() : 0;
  const int count = static_cast<int>(
      std::min<std::size_t>(size, static_cast<std::size_t>(std::numeric_limits<int>::max())));
  const bool grows = other == run && count >= rows;
  if (!grows) beginResetModel();
  if (grows && count > rows) beginInsertRows({}, rows, count - 1);
  const bool inserts = grows && count > rows;
  run = other;
  rows = count;
  if (inserts) endInsertRows();
  if (!grows) endResetModel();
  if (rows > 0) emit dataChanged(index(0), index(rows - 1));
}

int TraceModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows; }

std::optional<std::size_t> TraceModel::PartingPlace() const {
  const auto* replay = dynamic_cast<const Replay*>(run);
  if (replay == nullptr || !replay->Where()) return std::nullopt;
  return replay->Where()->place;
}

QVariant TraceModel::data(const QModelIndex& index, int role) const {
  if (run == nullptr || !index.isValid() || index.row() >= rows) return {};
  const auto line = static_cast<std::size_t>(index.row());
  const bool parts = PartingPlace() == line;
  const std::string note = run->NoteOf(line);
  switch (role) {
    case Qt::DisplayRole: {
      QString text = ToQString(run->TextOf(line));
      if (!note.empty()) text += QStringLiteral("   \u2014 ") + ToQString(note).simplified();
      return text;
    }
    case Qt::ToolTipRole: return note.empty() ? QVariant() : ToQString(note);
    case Qt::DecorationRole:
      if (!parts) return {};
      return QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical);
    case Qt::ForegroundRole:
      if (line < run->Place()) return {};
      return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    default: return {};
  }
}

}  // namespace morvane
