#pragma once

#include <map>
#include <memory>
#include <set>
#include <vector>

#include <QDialog>

#include "platform/Dialog.h"
#include "platform/qt/DialogContainer.h"
#include "platform/qt/DialogWidget.h"

namespace morvane {

/// The window of any dialog, built from its controls.
class QtDialogWindow : public QDialog, public DialogWindow {
  Q_OBJECT

 public:
  /// The dialog has to outlive the window.
  QtDialogWindow(Dialog& dialog, QWidget* parent);
  ~QtDialogWindow() override;

  void Refresh() override;
  void FocusOn(int id) override;
  void End() override;
  void KeepOff(const RECT& place) override;
  /// Escape and the title bar's button.
  void reject() override;

 protected:
  /// The keys that hold in the whole of a dialog.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Entry {
    int id;
    std::unique_ptr<DialogWidget> widget;
  };

  void MarkGrowth();
  void Build();
  void AddContainer(const DialogControl& control);
  void AddWidget(const DialogControl& control);
  DialogContainer::Growth GrowthOf(int id) const;
  QString SpokenName(const DialogControl& control) const;
  void FitToScreen();
  void SetTabOrder();
  void OnClick(int id);
  /// Presses the button that Return presses outside the boxes of several lines.
  void PressDefault();
  /// False if the user wants to keep what was typed.
  bool MayDiscard();

  Dialog& dialog;
  std::map<int, std::unique_ptr<DialogContainer>> containers;
  std::vector<Entry> widgets;
  std::set<int> wide;  ///< controls that take more room than they need, and what holds them
  std::set<int> tall;
  bool asking = false;  ///< a question of this dialog is open
};

}  // namespace morvane
