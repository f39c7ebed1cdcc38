#include "codegen/qt/ToolOutput.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <QTextLayout>

#include "codegen/CGenerateCppDlg.h"
#include "codegen/PlacedMessage.h"
#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

/// A text as the box can show it: its own marks for the structure of a document, and control
/// characters, take the place of a blank.
QString Printable(std::string_view utf8) {
  QString text = FromUtf8(utf8);
  for (QChar& c : text) {
    const bool isControl = c < u' ' && c != u'\n' && c != u'\t';
    const bool isMark = c == QChar::LineSeparator || c == QChar::ParagraphSeparator ||
                        c == QChar(0xFDD0) || c == QChar(0xFDD1);
    if (isControl || isMark || c == QChar(0x7F)) c = u' ';
  }
  return text;
}

bool IsLink(const QString& line) { return PlacedMessage::Parse(line.toStdString()).has_value(); }

/// Paints the lines that are links as such.
class LinkPainter : public QSyntaxHighlighter {
 public:
  explicit LinkPainter(QPlainTextEdit& box) : QSyntaxHighlighter(box.document()) {
    link.setForeground(box.palette().link());
    link.setFontUnderline(true);
  }

 protected:
  void highlightBlock(const QString& text) override {
    if (IsLink(text)) setFormat(0, static_cast<int>(text.size()), link);
  }

 private:
  QTextCharFormat link;
};

}  // namespace

ToolOutput::ToolOutput(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setMaximumBlockCount(static_cast<int>(ScreenText::kMostLines));
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  viewport()->setMouseTracking(true);
  new LinkPainter(*this);  // belongs to the document
}

void ToolOutput::Empty() {
  screenText.Clear();
  clear();
}

void ToolOutput::Add(std::string_view bytes) {
  QScrollBar* bar = verticalScrollBar();
  const bool atEnd = bar->value() == bar->maximum();
  QString lines = Printable(screenText.Add(bytes));
  QTextCursor cursor(document());
  cursor.movePosition(QTextCursor::End);
  cursor.beginEditBlock();
  const QString last = cursor.block().text();
  if (lines.startsWith(last)) {
    // What stands there stays, so that a selection in it does too.
    lines.remove(0, last.size());
  } else {
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
  }
  cursor.insertText(lines);
  cursor.endEditBlock();
  Forget(cursor);
  if (atEnd) bar->setValue(bar->maximum());
}

void ToolOutput::Forget(QTextCursor& cursor) const {
  const int excess = document()->characterCount() - static_cast<int>(CGenerateCppDlg::kBoxLimit);
  if (excess <= 0) return;
  cursor.movePosition(QTextCursor::Start);
  cursor.setPosition(excess, QTextCursor::KeepAnchor);
  cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
}

QString ToolOutput::LinkAt(QPoint point) const {
  const QTextCursor cursor = cursorForPosition(point);
  // Below the last line and beside a short one there is no text.
  const QTextBlock block = cursor.block();
  const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
  if (block.layout() == nullptr || !place.contains(point)) return {};
  const QTextLine line = block.layout()->lineForTextPosition(cursor.positionInBlock());
  if (!line.isValid() || point.x() > place.left() + line.naturalTextRect().right()) return {};
  return IsLink(block.text()) ? block.text() : QString();
}

void ToolOutput::mousePressEvent(QMouseEvent* event) {
  QPlainTextEdit::mousePressEvent(event);
  pressed = event->button() == Qt::LeftButton ? LinkAt(event->position().toPoint()) : QString();
}

void ToolOutput::mouseMoveEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseMoveEvent(event);
  if (event->buttons() != Qt::NoButton) return;
  const bool overLink = !LinkAt(event->position().toPoint()).isEmpty();
  viewport()->setCursor(overLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void ToolOutput::mouseReleaseEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseReleaseEvent(event);
  const QString link = std::exchange(pressed, QString());
  // A drag selects text to copy.
  if (link.isEmpty() || textCursor().hasSelection()) return;
  if (LinkAt(event->position().toPoint()) == link) emit LinkFollowed(link);
}

void ToolOutput::keyPressEvent(QKeyEvent* event) {
  const QString line = textCursor().block().text();
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Elsewhere the key presses the default button.
  if (isReturn && IsLink(line)) {
    emit LinkFollowed(line);
  } else {
    QPlainTextEdit::keyPressEvent(event);
  }
}

}  // namespace morvane
