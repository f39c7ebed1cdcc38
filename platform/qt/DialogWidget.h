#pragma once

#include <functional>
#include <memory>

#include "platform/Dialog.h"

class QString;
class QWidget;

namespace morvane {

/// The label of a control in the user's language.
QString ShownLabel(const DialogControl& control);

/// A control of a dialog as a widget, which its parent widget owns.
class DialogWidget {
 public:
  using OnClick = std::function<void()>;

  DialogWidget() = default;
  virtual ~DialogWidget() = default;
  DialogWidget(const DialogWidget&) = delete;
  DialogWidget& operator=(const DialogWidget&) = delete;

  virtual QWidget* Widget() = 0;
  /// Writes what the user did into the control.
  virtual void Take(DialogControl& control) = 0;
  /// Shows the control as it stands now.
  virtual void Show(const DialogControl& control) = 0;
  /// Selects the text of a box, so that typing replaces it, unless it is code of several lines.
  virtual void SelectAll() {}
  /// The user typed a text that would be lost if the dialog closed now.
  virtual bool HasTyped() const { return false; }

  /// The widget for a control that is no container; it still shows nothing. `onClick` is called
  /// when the user clicks, chooses or selects.
  static std::unique_ptr<DialogWidget> Make(const DialogControl& control, QWidget* parent,
                                            OnClick onClick);
};

}  // namespace morvane
