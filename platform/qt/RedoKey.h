#pragma once

#include <QObject>

class QWidget;

namespace morvane {

/// Lets Ctrl+Y redo in a box of the toolkit, which knows another key only. It belongs to the box.
class RedoKey : public QObject {
 public:
  explicit RedoKey(QWidget* box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace morvane
