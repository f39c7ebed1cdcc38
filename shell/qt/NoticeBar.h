#pragma once

#include <vector>

#include <QWidget>

#include "persistence/CDocument.h"

namespace morvane {

/// The bars across the top of a chart's window: one for each notice, with its buttons.
class NoticeBar : public QWidget {
  Q_OBJECT

 public:
  explicit NoticeBar(QWidget* parent);

  /// Shows these notices and no others.
  void Show(const std::vector<DocumentNotice>& notices);

 signals:
  void Answered(DocumentNotice::Answer answer);

 private:
  QWidget* MakeBar(const DocumentNotice& notice);

  std::vector<QWidget*> bars;
};

}  // namespace morvane
