#pragma once

#include "platform/qt/DialogWidget.h"
#include "platform/qt/TextState.h"

namespace morvane {

class TextEdit;

/// A box of several lines. What was edited goes back with CR LF between the lines. A text with a
/// line too long to be laid out at each key is shown in part and can't be edited.
class LinesBox : public DialogWidget {
 public:
  LinesBox(const DialogControl& control, QWidget* parent);

  QWidget* Widget() override;
  void Take(DialogControl& control) override;
  void Show(const DialogControl& control) override;
  void SelectAll() override;
  bool HasTyped() const override;

 private:
  std::string Read() const;

  TextEdit* box;
  TextState state;
};

}  // namespace morvane
