#include "platform/qt/LineBox.h"

#include <limits>

#include <QFontDatabase>
#include <QLineEdit>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/BoxText.h"
#include "platform/qt/RedoKey.h"

namespace morvane {

LineBox::LineBox(const DialogControl& control, QWidget* parent) : box(new QLineEdit(parent)) {
  box->setMaxLength(std::numeric_limits<int>::max());
  if (control.code) box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  box->setMinimumWidth(box->fontMetrics().averageCharWidth() * control.width);
  new RedoKey(box);
  QObject::connect(box, &QLineEdit::textEdited, box, [this] { OnEdited(); });
}

QWidget* LineBox::Widget() { return box; }

void LineBox::OnEdited() {
  QString text = box->text();
  if (!text.contains('\n') && !text.contains('\r')) return;
  const qsizetype behind = text.size() - box->cursorPosition();
  text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ');
  box->setText(text);
  box->setCursorPosition(static_cast<int>(text.size() - behind));
}

void LineBox::Take(DialogControl& control) {
  state.Take(
      box->text() != shown, [this] { return ToBytes(box->text()); }, control.text);
}

void LineBox::Show(const DialogControl& control) {
  if (!state.IsStale(control.text)) return;
  state.Load(control.text);
  const BoxText text(control.text);
  box->setText(FromUtf8(text.utf8));
  box->setReadOnly(!text.whole);
  box->setToolTip(text.whole ? QString() : ToQString(Worded(kLineTooLong)));
  box->setCursorPosition(0);
  shown = box->text();
}

void LineBox::SelectAll() { box->selectAll(); }

bool LineBox::HasTyped() const { return box->text() != shown; }

}  // namespace morvane
