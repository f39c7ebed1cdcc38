#include "platform/qt/TextCombo.h"

#include <utility>

#include "drawing/qt/QtText.h"

namespace morvane {

TextCombo::TextCombo(const DialogControl& control, QWidget* parent, OnClick onClick)
    : combo(new QComboBox(parent)) {
  for (const std::string& item : control.items) combo->addItem(ToQString(item));
  QObject::connect(combo, &QComboBox::activated, combo, std::move(onClick));
}

}  // namespace morvane
