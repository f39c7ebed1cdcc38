#include "shell/qt/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace morvane {

namespace {

constexpr int kLeastLetters = 12;

}  // namespace

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastLetters, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::IsCut() const {
  return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  // As rich text a tip would be broken into lines, but a name may look like it.
  setToolTip(IsCut() ? text().toHtmlEscaped() : QString());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                        isEnabled(), shown, foregroundRole());
}

}  // namespace morvane
