#include "platform/qt/LinesBox.h"

#include <QTextDocument>

#include "drawing/qt/QtText.h"
#include "platform/LineBreaks.h"
#include "platform/Wording.h"
#include "platform/qt/BoxText.h"
#include "platform/qt/RedoKey.h"
#include "platform/qt/TextEdit.h"

namespace morvane {

LinesBox::LinesBox(const DialogControl& control, QWidget* parent)
    : box(new TextEdit(control.width, control.lines, parent)) {
  new RedoKey(box);
}

QWidget* LinesBox::Widget() { return box; }

std::string LinesBox::Read() const { return WithCrLf(ToBytes(box->document()->toRawText())); }

void LinesBox::Take(DialogControl& control) {
  state.Take(
      box->document()->isModified(), [this] { return Read(); }, control.text);
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

void LinesBox::SelectAll() { box->selectAll(); }

bool LinesBox::HasTyped() const {
  return box->document()->isModified() && Read() != WithCrLf(BoxText(state.Original()).utf8);
}

}  // namespace morvane
