#pragma once

#include <QComboBox>

#include "platform/qt/DialogWidget.h"

namespace morvane {

/// A choice of texts as a control of a dialog.
class TextCombo : public DialogWidget {
 public:
  TextCombo(const DialogControl& control, QWidget* parent, OnClick onClick);

  QWidget* Widget() override { return combo; }
  void Take(DialogControl& control) override { control.selection = combo->currentIndex(); }
  void Show(const DialogControl& control) override { combo->setCurrentIndex(control.selection); }

 private:
  QComboBox* combo;
};

}  // namespace morvane
