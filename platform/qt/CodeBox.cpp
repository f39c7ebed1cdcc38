#include "platform/qt/CodeBox.h"

#include <algorithm>
#include <cmath>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMimeData>
#include <QScrollBar>
#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>

#include "drawing/qt/QtText.h"
#include "platform/Indentation.h"
#include "platform/LineBreaks.h"
#include "platform/PopupMenus.h"
#include "platform/Wording.h"
#include "platform/qt/CodeLexer.h"

namespace morvane {

namespace {

/// A box can be made as small as this.
constexpr int kLeastLetters = 20;
constexpr int kLeastLines = 3;
/// Pixels between the frame and the text.
constexpr int kMargin = 4;
constexpr int kTopMargin = 3;
constexpr int kMargins = 5;

}  // namespace

CodeBox::CodeBox(Syntax syntax, int letters, int lines, QWidget* parent)
    : QsciScintilla(parent),
      roomyLetters(letters),
      roomyLines(lines),
      colours(new CodeLexer(syntax, this)) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setLexer(colours);
  SetUp();
  ForgetKeys();
  Dress();
}

void CodeBox::SetUp() {
  setUtf8(true);
  setEolMode(EolWindows);
  setWrapMode(WrapNone);
  setFolding(NoFoldStyle);
  for (int margin = 0; margin < kMargins; ++margin) setMarginWidth(margin, 0);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setViewportMargins(0, kTopMargin, 0, 0);
  SendScintilla(SCI_SETMARGINLEFT, 0UL, static_cast<long>(kMargin));
  SendScintilla(SCI_SETMARGINRIGHT, 0UL, static_cast<long>(kMargin));
  setCaretLineVisible(false);
  setTabWidth(kTabColumns);
  setAutoIndent(true);
  setTabIndents(true);
  setBackspaceUnindents(true);
  setBraceMatching(SloppyBraceMatch);
  setAutoCompletionSource(AcsNone);
  // As wide as the widest line that was shown, and no wider.
  SendScintilla(SCI_SETSCROLLWIDTH, 1UL);
  SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1UL);
  // A part of a program doesn't tell which of its branches are left out.
  SendScintilla(SCI_SETPROPERTY, "lexer.cpp.track.preprocessor", "0");
}

/// A size or a way of typing that was changed by mistake would stay.
void CodeBox::ForgetKeys() {
  for (const auto command : {QsciCommand::ZoomIn, QsciCommand::ZoomOut,
                             QsciCommand::EditToggleOvertype, QsciCommand::Formfeed}) {
    QsciCommand* found = standardCommands()->find(command);
    found->setKey(0);
    found->setAlternateKey(0);
  }
  QsciCommand* redo = standardCommands()->find(QsciCommand::Redo);
  redo->setKey((Qt::CTRL | Qt::Key_Y).toCombined());
  redo->setAlternateKey((Qt::CTRL | Qt::SHIFT | Qt::Key_Z).toCombined());
}

void CodeBox::Dress() {
  const QPalette shown = palette();
  colours->Dress(shown, isEnabled(), font());
  setCaretForegroundColor(shown.color(QPalette::Text));
  setSelectionBackgroundColor(shown.color(QPalette::Highlight));
  setSelectionForegroundColor(shown.color(QPalette::HighlightedText));
  const QColor paper = shown.color(QPalette::Base);
  const bool dark = paper.lightness() < shown.color(QPalette::Text).lightness();
  setMatchedBraceForegroundColor(shown.color(QPalette::Text));
  setMatchedBraceBackgroundColor(dark ? QColor(0x2F, 0x5D, 0x8A) : QColor(0xBF, 0xDD, 0xFA));
  setUnmatchedBraceForegroundColor(dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB7, 0x1C, 0x1C));
  setUnmatchedBraceBackgroundColor(paper);
}

void CodeBox::changeEvent(QEvent* event) {
  QsciScintilla::changeEvent(event);
  switch (event->type()) {
    case QEvent::FontChange: updateGeometry(); [[fallthrough]];
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
      if (colours != nullptr) Dress();
      break;
    default: break;
  }
}

void CodeBox::ShowText(std::string_view utf8) {
  const std::string text = WithCrLf(utf8);
  const bool locked = isReadOnly();
  setReadOnly(false);
  SendScintilla(SCI_CLEARALL);
  SendScintilla(SCI_APPENDTEXT, text.size(), text.data());
  SendScintilla(SCI_EMPTYUNDOBUFFER);
  SendScintilla(SCI_SETSAVEPOINT);
  SendScintilla(SCI_GOTOPOS, 0UL);
  SendScintilla(SCI_SETSCROLLWIDTH, 1UL);
  setReadOnly(locked);
  IndentLike(text);
}

/// With tabs if the text does so already. On a chart a tab is no wider than a blank.
void CodeBox::IndentLike(std::string_view utf8) {
  setIndentationsUseTabs(utf8.starts_with('\t') || utf8.find("\n\t") != std::string_view::npos);
}

std::string CodeBox::ShownText() const {
  const auto size = static_cast<std::size_t>(SendScintilla(SCI_GETLENGTH));
  const auto* bytes = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
  return WithCrLf({bytes, size});
}

void CodeBox::UnindentLine() {
  const auto position = static_cast<unsigned long>(SendScintilla(SCI_GETCURRENTPOS));
  unindent(static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, position)));
}

/// In one piece: line by line takes minutes for a long text.
void CodeBox::ShiftSelectedLines(bool back) {
  const auto lineOf = [this](long position) {
    return static_cast<unsigned long>(
        SendScintilla(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position)));
  };
  const long selected = SendScintilla(SCI_GETSELECTIONEND);
  const unsigned long last = lineOf(selected);
  const long start =
      SendScintilla(SCI_POSITIONFROMLINE, lineOf(SendScintilla(SCI_GETSELECTIONSTART)));
  // A line of which nothing is selected stays.
  const bool whole = SendScintilla(SCI_POSITIONFROMLINE, last) == selected;
  const long end = whole ? selected : SendScintilla(SCI_GETLINEENDPOSITION, last);
  const auto* bytes = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
  const std::string_view lines(bytes + start, static_cast<std::size_t>(end - start));
  const std::string shifted = back ? Unindented(lines) : Indented(lines, indentationsUseTabs());
  SendScintilla(SCI_SETTARGETSTART, static_cast<unsigned long>(start));
  SendScintilla(SCI_SETTARGETEND, static_cast<unsigned long>(end));
  SendScintilla(SCI_REPLACETARGET, shifted.size(), shifted.data());
  SendScintilla(SCI_SETSEL, static_cast<unsigned long>(start),
                start + static_cast<long>(shifted.size()));
}

/// Only what has its colours tells where a block begins.
void CodeBox::ColourToCaret() {
  const long styled = SendScintilla(SCI_GETENDSTYLED);
  const long caret = SendScintilla(SCI_GETCURRENTPOS);
  if (styled < caret) SendScintilla(SCI_COLOURISE, static_cast<unsigned long>(styled), caret);
}

void CodeBox::keyPressEvent(QKeyEvent* event) {
  const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
  const bool back =
      event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier) != 0;
  const bool leaves = isTab && (event->modifiers() & Qt::ControlModifier) != 0;
  if (leaves || event->key() == Qt::Key_Escape) {
    event->ignore();  // for the dialog
  } else if (isTab && hasSelectedText() && !isReadOnly()) {
    ShiftSelectedLines(back);
  } else if (isTab && back) {
    UnindentLine();
  } else {
    ColourToCaret();
    QsciScintilla::keyPressEvent(event);
  }
}

/// Letters keep their size.
void CodeBox::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    event->ignore();
  } else {
    QsciScintilla::wheelEvent(event);
  }
}

bool CodeBox::canInsertFromMimeData(const QMimeData* source) const {
  return source != nullptr && source->hasText();
}

QByteArray CodeBox::fromMimeData(const QMimeData* source, bool& rectangular) const {
  const QByteArray bytes = QsciScintilla::fromMimeData(source, rectangular);
  return QByteArray::fromStdString(
      WithCrLf({bytes.data(), static_cast<std::size_t>(bytes.size())}));
}

bool CodeBox::CanDo(BoxCommand command) const {
  switch (command) {
    case BoxCommand::Undo: return isUndoAvailable();
    case BoxCommand::Redo: return isRedoAvailable();
    case BoxCommand::Cut:
    case BoxCommand::Delete: return hasSelectedText() && !isReadOnly();
    case BoxCommand::Copy: return hasSelectedText();
    case BoxCommand::Paste:
      return !isReadOnly() && canInsertFromMimeData(QGuiApplication::clipboard()->mimeData());
    default: return length() > 0;
  }
}

void CodeBox::Do(BoxCommand command) {
  switch (command) {
    case BoxCommand::Undo: undo(); break;
    case BoxCommand::Redo: redo(); break;
    case BoxCommand::Cut: cut(); break;
    case BoxCommand::Copy: copy(); break;
    case BoxCommand::Paste: paste(); break;
    case BoxCommand::Delete: removeSelectedText(); break;
    case BoxCommand::SelectAll: selectAll(); break;
  }
}

void CodeBox::contextMenuEvent(QContextMenuEvent* event) {
  std::vector<PopupMenus::Item> items;
  for (const BoxMenuEntry& entry : kBoxMenu) {
    std::string text = Worded(entry.text);
    text.append("\t").append(entry.key);
    items.push_back({static_cast<unsigned>(entry.command), std::move(text), {}});
    items.back().state.enabled = CanDo(entry.command);
    if (EndsGroup(entry.command)) items.push_back({0, "", {}});
  }
  const QPoint place = event->globalPos();
  const unsigned chosen = TrackMenu(items, {place.x(), place.y()});
  if (chosen != 0) Do(static_cast<BoxCommand>(chosen));
}

QSize CodeBox::SizeFor(int letterCount, int lineCount) const {
  const QFontMetricsF metrics(font());
  const int edge = 2 * (frameWidth() + kMargin);
  const int bar = verticalScrollBar()->sizeHint().width();
  return {static_cast<int>(std::ceil(metrics.averageCharWidth() * letterCount)) + edge + bar,
          static_cast<int>(std::ceil(metrics.lineSpacing() * lineCount)) + edge + bar};
}

QSize CodeBox::sizeHint() const { return SizeFor(roomyLetters, roomyLines); }

QSize CodeBox::minimumSizeHint() const {
  return SizeFor(std::min(roomyLetters, kLeastLetters), std::min(roomyLines, kLeastLines));
}

}  // namespace morvane
