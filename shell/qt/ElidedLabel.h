#pragma once

#include <QLabel>

namespace morvane {

/// A line of text that takes whatever width there is: a longer one has dots in its middle and is
/// whole in its tool tip.
class ElidedLabel : public QLabel {
 public:
  ElidedLabel(const QString& text, QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool IsCut() const;
};

}  // namespace morvane
