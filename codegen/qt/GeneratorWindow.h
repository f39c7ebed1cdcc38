#pragma once

#include <map>

#include <QDialog>

#include "codegen/CGenerateCppDlg.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace morvane {

class ToolOutput;

/// The window of a generator run.
class GeneratorWindow : public QDialog, public DialogWindow, public OutputBox {
  Q_OBJECT

 public:
  GeneratorWindow(CGenerateCppDlg& dialog, QWidget* parent);
  ~GeneratorWindow() override;

  void Refresh() override;
  void FocusOn(int id) override;
  void End() override { done(0); }
  void Clear() override;
  void Append(std::string_view text) override;
  void MakeRoomFor(const RECT& place) override;
  /// Escape, or the window was closed.
  void reject() override;

 private:
  /// The label of a control in the language of the user.
  QString LabelOf(int id) const;
  QWidget* MakeFields();
  /// Gives how much larger than its smallest size the box is at first.
  QSize MakeOutput();
  QWidget* MakeButtons();

  CGenerateCppDlg& dialog;
  QCheckBox* debug = nullptr;
  std::map<int, QLineEdit*> boxes;  ///< by the id of their control
  QLabel* status = nullptr;
  ToolOutput* output = nullptr;
  QPushButton* generate = nullptr;
};

/// Shows the dialogs of generator runs for as long as it lives.
class QtGeneratorHost : public GeneratorHost {
 public:
  QtGeneratorHost() { Service<GeneratorHost>::Set(this); }
  ~QtGeneratorHost() override { Service<GeneratorHost>::Set(nullptr); }
  QtGeneratorHost(const QtGeneratorHost&) = delete;
  QtGeneratorHost& operator=(const QtGeneratorHost&) = delete;

  void Run(CGenerateCppDlg& dialog) override;
};

}  // namespace morvane
