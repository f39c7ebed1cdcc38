#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "codegen/CRedirect.h"
#include "codegen/GeneratorKind.h"
#include "platform/Dialog.h"

namespace morvane {

class CGenerateCppDlg;

/// The box on the screen that shows what a tool writes.
class OutputBox {
 public:
  virtual ~OutputBox() = default;
  virtual void Clear() = 0;
  virtual void Append(std::string_view text) = 0;
};

/// Shows the dialog of a generator run, whose box follows the output. The default service has no
/// screen and closes the dialog at once.
class GeneratorHost {
 public:
  virtual ~GeneratorHost() = default;
  /// Runs the dialog until it has ended, as a `DialogHost` does, and hands it the output box for
  /// that time.
  virtual void Run(CGenerateCppDlg& dialog) = 0;
  static GeneratorHost& Default();
};

/// The dialog of a generator run: starts the tool for a saved model file and shows its output live.
/// It has to be destroyed on the user-interface thread; that ends a tool that still runs.
class CGenerateCppDlg : public Dialog, public CRedirect {
 public:
  enum ControlId : int {
    kDesignFileId = 100,
    kOutputFolderId,
    kDebugId,
    kOutputId,
    kButtonsId,
    kGenerateId,
  };

  /// What the output box holds at most, in bytes. The newest text stays.
  static constexpr std::size_t kBoxLimit = std::size_t{1} << 20;

  explicit CGenerateCppDlg(GeneratorKind kind);

  /// Sets the full path of the model file.
  void SetDesignFile(std::string path) { designFile = std::move(path); }
  /// The box that shows the output, not owned; null when it is gone.
  void SetOutputBox(OutputBox* shown) { outputBox = shown; }

 protected:
  void Run() override;
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;
  void OnToolOutput(const std::string& text) override { AppendOutput(text); }
  void OnToolError(const std::string& text) override { AppendOutput(text); }

 private:
  void Generate();
  std::string CommandLine() const;
  void AppendOutput(const std::string& text);

  GeneratorKind kind;
  std::string designFile;
  std::string outputFolder;
  std::int32_t debug = 1;
  OutputBox* outputBox = nullptr;
};

}  // namespace morvane
