#include "platform/qt/QtMessageBoxes.h"

#include <array>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"

namespace morvane {

namespace {

QMessageBox::StandardButtons ButtonsOf(unsigned flags) {
  switch (flags & kButtonSetMask) {
    case MB_OKCANCEL: return QMessageBox::Ok | QMessageBox::Cancel;
    case MB_YESNO: return QMessageBox::Yes | QMessageBox::No;
    case MB_YESNOCANCEL: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default: return QMessageBox::Ok;
  }
}

QMessageBox::Icon IconOf(unsigned flags) {
  switch (flags & kIconMask) {
    case MB_ICONHAND: return QMessageBox::Critical;
    case MB_ICONEXCLAMATION: return QMessageBox::Warning;
    default: return QMessageBox::NoIcon;
  }
}

MessageAnswer AnswerOf(int button, unsigned flags) {
  switch (button) {
    case QMessageBox::Yes: return MessageAnswer::Yes;
    case QMessageBox::No: return MessageAnswer::No;
    case QMessageBox::Ok: return MessageAnswer::Ok;
    default: break;
  }
  // Cancel, or closed without a button: the answer that changes nothing.
  switch (flags & kButtonSetMask) {
    case MB_OKCANCEL:
    case MB_YESNOCANCEL: return MessageAnswer::Cancel;
    case MB_YESNO: return MessageAnswer::No;
    default: return MessageAnswer::Ok;
  }
}

/// The toolkit's own names may be in another language than the text, or missing.
void NameButtons(const QMessageBox& box) {
  const std::array names{
      std::pair{QMessageBox::Ok, Worded("OK")}, std::pair{QMessageBox::Cancel, Worded("Cancel")},
      std::pair{QMessageBox::Yes, Worded("&Yes")}, std::pair{QMessageBox::No, Worded("&No")}};
  for (const auto& [which, name] : names) {
    if (QAbstractButton* button = box.button(which)) button->setText(ToQString(name));
  }
}

}  // namespace

MessageAnswer QtMessageBoxes::Show(const std::string& text, unsigned flags) {
  QMessageBox box(DialogParent());
  box.setWindowTitle(QApplication::applicationName());
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(text));
  box.setIcon(IconOf(flags));
  box.setStandardButtons(ButtonsOf(flags));
  NameButtons(box);
  const bool second = (flags & MB_DEFBUTTON2) != 0;
  switch (flags & kButtonSetMask) {
    case MB_OKCANCEL:
      box.setDefaultButton(second ? QMessageBox::Cancel : QMessageBox::Ok);
      box.setEscapeButton(QMessageBox::Cancel);
      break;
    case MB_YESNO:
      box.setDefaultButton(second ? QMessageBox::No : QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::No);
      break;
    case MB_YESNOCANCEL:
      box.setDefaultButton(second ? QMessageBox::No : QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::Cancel);
      break;
    default: break;
  }
  // The work that the program is at waits for the user now.
  const bool waiting = QApplication::overrideCursor() != nullptr;
  if (waiting) QApplication::setOverrideCursor(Qt::ArrowCursor);
  const int button = box.exec();
  if (waiting) QApplication::restoreOverrideCursor();
  return AnswerOf(button, flags);
}

}  // namespace morvane
