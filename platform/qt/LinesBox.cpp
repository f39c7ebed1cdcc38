#include "platform/qt/LinesBox.h"

#include <QFontDatabase>
#include <QTextDocument>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/BoxText.h"
#include "platform/qt/CodeEdit.h"

namespace morvane {

LinesBox::LinesBox(const DialogControl& control, QWidget* parent)
    : box(new CodeEdit(control.width, control.lines, parent)), isCode(control.code) {
  if (isCode) box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

QWidget* LinesBox::Widget() { return box; }

void LinesBox::Take(DialogControl& control) {
  const auto read = [this] {
    QString text = box->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, "\r\n");
    return ToBytes(text);
  };
  state.Take(box->document()->isModified(), read, control.text);
}

void LinesBox::Show(const DialogControl& control) {
  if (!state.IsStale(control.text)) return;
  state.Load(control.text);
  const BoxText text(control.text);
  box->setPlainText(FromUtf8(text.utf8));
  box->setReadOnly(!text.whole);
  box->setToolTip(text.whole ? QString() : ToQString(Worded(kLineTooLong)));
  box->document()->setModified(false);
}

/// Code is edited, a text is typed anew.
void LinesBox::SelectAll() {
  if (!isCode) box->selectAll();
}

}  // namespace morvane
