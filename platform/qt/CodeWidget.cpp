#include "platform/qt/CodeWidget.h"

#include "drawing/qt/QtText.h"
#include "platform/LineBreaks.h"
#include "platform/Wording.h"
#include "platform/qt/BoxText.h"
#include "platform/qt/CodeBox.h"

namespace morvane {

CodeWidget::CodeWidget(const DialogControl& control, QWidget* parent)
    : box(new CodeBox(control.syntax, control.width, control.lines, parent)) {}

QWidget* CodeWidget::Widget() { return box; }

void CodeWidget::Take(DialogControl& control) {
  state.Take(
      box->isModified(), [this] { return box->ShownText(); }, control.text);
}

void CodeWidget::Show(const DialogControl& control) {
  if (!state.IsStale(control.text)) return;
  state.Load(control.text);
  const BoxText text(control.text);
  box->ShowText(text.utf8);
  box->setReadOnly(!text.whole);
  box->setToolTip(text.whole ? QString() : ToQString(Worded(kLineTooLong)));
}

bool CodeWidget::HasTyped() const {
  return box->isModified() && box->ShownText() != WithCrLf(BoxText(state.Original()).utf8);
}

}  // namespace morvane
