#pragma once

#include "platform/qt/DialogWidget.h"
#include "platform/qt/TextState.h"

namespace morvane {

class CodeBox;

/// A box of several lines of code. A text with a line too long to be laid out at each key is shown
/// in part and can't be edited.
class CodeWidget : public DialogWidget {
 public:
  CodeWidget(const DialogControl& control, QWidget* parent);

  QWidget* Widget() override;
  void Take(DialogControl& control) override;
  void Show(const DialogControl& control) override;
  bool HasTyped() const override;

 private:
  CodeBox* box;
  TextState state;
};

}  // namespace morvane
