#pragma once

#include <QDialog>

#include "codegen/CGenerateCppDlg.h"
#include "codegen/ScreenText.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QTextCursor;

namespace morvane {

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
  /// Escape, or the window was closed.
  void reject() override;

 private:
  QWidget* MakeFields();
  /// Gives how much larger than its smallest size the box is at first.
  QSize MakeOutput();
  QWidget* MakeButtons();
  void Forget(QTextCursor& cursor) const;

  CGenerateCppDlg& dialog;
  QCheckBox* debug = nullptr;
  QPlainTextEdit* output = nullptr;
  QPushButton* generate = nullptr;
  ScreenText screenText;
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
