#include "codegen/qt/GeneratorWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>

#include "drawing/qt/QtText.h"
#include "platform/qt/DialogParent.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// How much smaller than at first the output box can get.
constexpr int kSmallest = 3;

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

}  // namespace

GeneratorWindow::GeneratorWindow(CGenerateCppDlg& dialog, QWidget* parent)
    : QDialog(parent), dialog(dialog) {
  setWindowTitle(ToQString(dialog.Caption()));
  setSizeGripEnabled(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeFields());
  const QSize growth = MakeOutput();
  layout->addWidget(output, 1);
  layout->addWidget(MakeButtons());
  resize(minimumSizeHint() + growth);
  generate->setFocus();
  GeneratorWindow::Refresh();
  dialog.SetWindow(this);
  dialog.SetOutputBox(this);
}

GeneratorWindow::~GeneratorWindow() {
  dialog.SetOutputBox(nullptr);
  dialog.SetWindow(nullptr);
}

QWidget* GeneratorWindow::MakeFields() {
  auto* fields = new QWidget;
  auto* layout = new QFormLayout(fields);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const int id : {CGenerateCppDlg::kDesignFileId, CGenerateCppDlg::kOutputFolderId}) {
    const DialogControl& control = dialog.Control(id);
    auto* box = new QLineEdit(ToQString(control.text));
    box->setReadOnly(true);
    box->setToolTip(box->text());  // the whole of a path that is too long for the box
    box->setAccessibleName(ToQString(control.label));
    layout->addRow(ToQString(control.label), box);
  }
  debug = new QCheckBox(ToQString(dialog.Control(CGenerateCppDlg::kDebugId).label));
  connect(debug, &QCheckBox::toggled, this,
          [this](bool on) { this->dialog.Control(CGenerateCppDlg::kDebugId).checked = on; });
  layout->addRow(debug);
  return fields;
}

QSize GeneratorWindow::MakeOutput() {
  const DialogControl& control = dialog.Control(CGenerateCppDlg::kOutputId);
  output = new QPlainTextEdit;
  output->setReadOnly(true);
  output->setUndoRedoEnabled(false);
  output->setMaximumBlockCount(static_cast<int>(ScreenText::kMostLines));
  output->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  output->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  output->setTabChangesFocus(true);
  output->setAccessibleName(ToQString(Translate("Output of the tool")));
  const QFontMetrics metrics = output->fontMetrics();
  const QSize room(metrics.averageCharWidth() * control.width,
                   metrics.lineSpacing() * control.lines);
  output->setMinimumSize(room / kSmallest);
  // The frame and the scroll bar come on top of the room for the text.
  const int bar = output->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return room + QSize(2 * bar, bar) - output->minimumSize();
}

QWidget* GeneratorWindow::MakeButtons() {
  auto* buttons = new QWidget;
  auto* layout = new QHBoxLayout(buttons);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch(1);
  for (const int id : {int{CGenerateCppDlg::kGenerateId}, int{IDCANCEL}}) {
    const DialogControl& control = dialog.Control(id);
    auto* button = new QPushButton(ToQString(control.label));
    button->setDefault(control.isDefault);
    if (control.isDefault) generate = button;
    connect(button, &QPushButton::clicked, this, [this, id] { this->dialog.Click(id); });
    layout->addWidget(button);
  }
  return buttons;
}

void GeneratorWindow::Refresh() {
  const DialogControl& control = dialog.Control(CGenerateCppDlg::kDebugId);
  debug->setEnabled(control.enabled);
  debug->setChecked(control.checked);
}

void GeneratorWindow::FocusOn(int id) {
  if (id == CGenerateCppDlg::kOutputId) output->setFocus();
}

void GeneratorWindow::Clear() {
  screenText.Clear();
  output->clear();
}

void GeneratorWindow::Append(std::string_view text) {
  QScrollBar* bar = output->verticalScrollBar();
  const bool atEnd = bar->value() == bar->maximum();
  QString lines = Printable(screenText.Add(text));
  QTextCursor cursor(output->document());
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

void GeneratorWindow::Forget(QTextCursor& cursor) const {
  const int excess =
      output->document()->characterCount() - static_cast<int>(CGenerateCppDlg::kBoxLimit);
  if (excess <= 0) return;
  cursor.movePosition(QTextCursor::Start);
  cursor.setPosition(excess, QTextCursor::KeepAnchor);
  cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
}

void GeneratorWindow::reject() { dialog.Click(IDCANCEL); }

void QtGeneratorHost::Run(CGenerateCppDlg& dialog) {
  {
    GeneratorWindow window(dialog, DialogParent());
    window.exec();
  }
  // The end of the tool takes a moment, in which nothing is painted: what the window covered comes
  // back first.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace morvane
