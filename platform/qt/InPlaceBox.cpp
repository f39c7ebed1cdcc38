#include "platform/qt/InPlaceBox.h"

#include <algorithm>
#include <utility>

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "drawing/qt/QtText.h"
#include "platform/InPlaceText.h"
#include "platform/qt/DialogWidget.h"

namespace morvane {

namespace {

/// Letters smaller than that can't be read, pixels.
constexpr std::int32_t kLeastLetters = 10;
/// What a box needs around its text, pixels.
constexpr int kMargin = 6;

CFont Readable(CFont font) {
  font.height = std::min(font.height, -kLeastLetters);
  return font;
}

DialogControl ControlOf(const InPlaceText& text) {
  DialogControl control;
  control.kind = text.severalLines ? DialogControl::Kind::MultiEdit : DialogControl::Kind::Edit;
  control.width = 1;
  control.lines = 1;
  control.text = text.text;
  return control;
}

}  // namespace

InPlaceBox::InPlaceBox(const InPlaceText& text, QWidget* window, OnLeft onLeft)
    : window(window),
      left(std::move(onLeft)),
      control(ControlOf(text)),
      severalLines(text.severalLines),
      centred(text.centred),
      area(QPoint(text.client.left, text.client.top),
           QPoint(text.client.right - 1, text.client.bottom - 1)),
      box(DialogWidget::Make(control, window, nullptr)),
      widget(box->Widget()) {
  widget->setFont(QtFont(Readable(text.font)).Font());
  widget->setAccessibleName(ToQString(text.label));
  if (auto* line = qobject_cast<QLineEdit*>(widget.data())) {
    if (centred) line->setAlignment(Qt::AlignCenter);
    connect(line, &QLineEdit::textChanged, this, &InPlaceBox::Fit);
  } else if (auto* lines = qobject_cast<QPlainTextEdit*>(widget.data())) {
    lines->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    connect(lines, &QPlainTextEdit::textChanged, this, &InPlaceBox::Fit);
  }
  box->Show(control);
  box->SelectAll();
  widget->installEventFilter(this);
  Fit();
  widget->show();
  widget->setFocus(Qt::OtherFocusReason);
}

/// The box may go while one of its own events is under way.
InPlaceBox::~InPlaceBox() {
  if (widget == nullptr) return;
  widget->removeEventFilter(this);
  widget->hide();
  widget->deleteLater();
}

void InPlaceBox::Move(const QRect& place) {
  area = place;
  Fit();
}

bool InPlaceBox::HasFocus() const { return widget != nullptr && widget->hasFocus(); }

std::string InPlaceBox::Text() {
  if (widget != nullptr) box->Take(control);
  return control.text;
}

QSize InPlaceBox::RoomForText() const {
  const QFontMetrics metrics = widget->fontMetrics();
  if (const auto* line = qobject_cast<QLineEdit*>(widget.data())) {
    const int cursor = metrics.averageCharWidth();
    return {metrics.horizontalAdvance(line->text()) + cursor, metrics.height()};
  }
  const auto* lines = qobject_cast<QPlainTextEdit*>(widget.data());
  const int count = lines == nullptr ? 1 : static_cast<int>(lines->document()->size().height());
  return {0, metrics.lineSpacing() * (count + 1)};
}

/// At least where the text stood, and within the window if it can be.
void InPlaceBox::Fit() {
  const QRect whole = window->rect();
  QRect place = area;
  for (int pass = 0; pass < 2; ++pass) {
    // The height of lines that are wrapped follows from the width.
    const QSize room = RoomForText() + QSize(2 * kMargin, 2 * kMargin);
    const QSize size = area.size().expandedTo(room).boundedTo(whole.size());
    place.setSize(size);
    if (!severalLines || place.size() == widget->size()) break;
    widget->resize(place.size());
  }
  if (centred) place.moveLeft(area.center().x() - place.width() / 2);
  place.moveLeft(std::clamp(place.left(), 0, std::max(0, whole.width() - place.width())));
  place.moveTop(std::clamp(place.top(), 0, std::max(0, whole.height() - place.height())));
  widget->setGeometry(place);
}

void InPlaceBox::Leave(bool keep) {
  if (const OnLeft tell = std::exchange(left, nullptr)) tell(keep);
}

bool InPlaceBox::TakeKey(int key, Qt::KeyboardModifiers modifiers) {
  switch (key) {
    case Qt::Key_Escape: Leave(false); return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: Leave(true); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (severalLines && (modifiers & Qt::ControlModifier) == 0) return false;
      Leave(true);
      return true;
    default: return false;
  }
}

/// Whoever hears that the user leaves may have destroyed this object.
bool InPlaceBox::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    return TakeKey(key->key(), key->modifiers());
  }
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) Leave(true);
  }
  return false;
}

}  // namespace morvane
