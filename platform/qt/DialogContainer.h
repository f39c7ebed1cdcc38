#pragma once

#include "platform/Dialog.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QTabWidget;
class QWidget;

namespace morvane {

/// A container of a dialog while it is filled: it lays its children out one under the other with
/// their labels aligned, side by side, or on tabs.
class DialogContainer {
 public:
  /// How a child takes part in what room there is to spare.
  struct Growth {
    bool wide = false;
    bool tall = false;
  };

  /// The container that a control describes; it makes its own widget inside `parent`.
  DialogContainer(const DialogControl& control, QWidget* parent);
  /// The whole of a dialog, as a column.
  explicit DialogContainer(QWidget* window);
  DialogContainer(const DialogContainer&) = delete;
  DialogContainer& operator=(const DialogContainer&) = delete;

  QWidget* Widget() const { return widget; }
  /// Adds a child with its label. `focus` is the widget that the label leads to; null if none.
  void Add(const DialogControl& control, QWidget* child, QWidget* focus, Growth growth);
  /// Makes a column at least so wide.
  void SetLeastWidth(int pixels);
  /// Keeps the children together at the top or at the left if none of them grows.
  void Finish();

 private:
  void MakeColumn(bool inner);
  void AddToColumn(const DialogControl& control, QWidget* child, QLabel* label, Growth growth);
  void AddToRow(const DialogControl& control, QWidget* child, QLabel* label, Growth growth);

  QWidget* widget;
  QGridLayout* column = nullptr;
  QBoxLayout* row = nullptr;
  QTabWidget* tabs = nullptr;
  int lines = 0;
  bool hasTall = false;
  bool hasWide = false;
  bool hasButton = false;
};

}  // namespace morvane
