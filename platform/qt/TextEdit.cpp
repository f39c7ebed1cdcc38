#include "platform/qt/TextEdit.h"

#include <algorithm>
#include <cmath>

#include <QEvent>
#include <QMimeData>
#include <QScrollBar>

namespace morvane {

namespace {

constexpr int kTabLetters = 4;
/// A box can be made as small as this.
constexpr int kLeastLetters = 20;
constexpr int kLeastLines = 3;

}  // namespace

TextEdit::TextEdit(int letters, int lines, QWidget* parent)
    : QPlainTextEdit(parent), letters(letters), lines(lines) {
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
}

void TextEdit::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  setTabStopDistance(QFontMetricsF(font()).horizontalAdvance(' ') * kTabLetters);
  updateGeometry();
}

bool TextEdit::canInsertFromMimeData(const QMimeData* source) const {
  return source != nullptr && source->hasText();
}

void TextEdit::insertFromMimeData(const QMimeData* source) {
  if (canInsertFromMimeData(source)) QPlainTextEdit::insertFromMimeData(source);
}

QSize TextEdit::SizeFor(int letterCount, int lineCount) const {
  const QFontMetricsF metrics(font());
  const int edge = 2 * (frameWidth() + static_cast<int>(std::ceil(document()->documentMargin())));
  const int bar = verticalScrollBar()->sizeHint().width();
  return {static_cast<int>(std::ceil(metrics.averageCharWidth() * letterCount)) + edge + bar,
          static_cast<int>(std::ceil(metrics.lineSpacing() * lineCount)) + edge + bar};
}

QSize TextEdit::sizeHint() const { return SizeFor(letters, lines); }

QSize TextEdit::minimumSizeHint() const {
  return SizeFor(std::min(letters, kLeastLetters), std::min(lines, kLeastLines));
}

}  // namespace morvane
