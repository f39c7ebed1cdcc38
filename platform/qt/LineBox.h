#pragma once

#include <QString>

#include "platform/qt/DialogWidget.h"
#include "platform/qt/TextState.h"

class QLineEdit;

namespace morvane {

/// A box of one line. A line break that is pasted becomes a blank. A text too long to be laid out
/// at each key is shown in part and can't be edited.
class LineBox : public DialogWidget {
 public:
  LineBox(const DialogControl& control, QWidget* parent);

  QWidget* Widget() override;
  void Take(DialogControl& control) override;
  void Show(const DialogControl& control) override;
  void SelectAll() override;
  bool HasTyped() const override;

 private:
  void OnEdited();

  QLineEdit* box;
  TextState state;
  QString shown;  ///< as it was loaded
};

}  // namespace morvane
