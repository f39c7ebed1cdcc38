#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "codegen/CRedirect.h"
#include "codegen/GeneratorKind.h"
#include "drawing/Geometry.h"
#include "platform/Dialog.h"

namespace morvane {

class CGenerateCppDlg;
class ChartPlaces;

/// The box on the screen that shows what a tool writes.
class OutputBox {
 public:
  virtual ~OutputBox() = default;
  virtual void Clear() = 0;
  virtual void Append(std::string_view text) = 0;
  /// Leaves a place of the screen free, so far as that can be.
  virtual void MakeRoomFor(const RECT& screen) = 0;
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

/// The dialog of a generator run: starts the tool for a saved model file, tells how it goes, and
/// shows its output live. A message about a place of the chart leads there. It has to be destroyed
/// on the user-interface thread; that ends a tool that still runs.
class CGenerateCppDlg : public Dialog, public CRedirect {
 public:
  enum ControlId : int {
    kDesignFileId = 100,
    kOutputFolderId,
    kCommandId,
    kStatusId,
    kDebugId,
    kOutputId,
    kButtonsId,
    kOpenFolderId,
    kGenerateId,
  };

  /// What the output box holds at most, in bytes. The newest text stays.
  static constexpr std::size_t kBoxLimit = std::size_t{1} << 20;

  /// The chart isn't owned; without one no message leads anywhere.
  explicit CGenerateCppDlg(GeneratorKind kind, const ChartPlaces* chart = nullptr);

  /// Sets the full path of the model file.
  void SetDesignFile(std::string path) { designFile = std::move(path); }
  /// The box that shows the output, not owned; null when it is gone.
  void SetOutputBox(OutputBox* shown) { outputBox = shown; }
  /// The user wants to see what a line of the output, in UTF-8, is about. A line that is no message
  /// about a place does nothing.
  void FollowLine(std::string_view line);

 protected:
  void Run() override;
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;
  void OnToolStarted(const std::string& commandLine) override;
  void OnToolOutput(const std::string& text) override { AppendOutput(text); }
  void OnToolError(const std::string& text) override { AppendOutput(text); }
  void OnToolExited() override;

 private:
  void Generate();
  void OpenFolder() const;
  void ShowStatus(std::string text);
  std::string CommandLine() const;
  void AppendOutput(const std::string& text);

  GeneratorKind kind;
  const ChartPlaces* chart;
  std::string designFile;
  std::string outputFolder;
  std::int32_t debug = 1;
  OutputBox* outputBox = nullptr;
};

}  // namespace morvane
