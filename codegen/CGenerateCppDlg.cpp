#include "codegen/CGenerateCppDlg.h"

#include "codegen/ToolInbox.h"
#include "platform/FieldExchange.h"
#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

constexpr const char* kToolFolder = "bin\\";
constexpr const char* kDebugFlag = "-g ";
constexpr int kOutputWidth = 80;
constexpr int kOutputLines = 20;

// When output was dropped on its way, what came after it fills the box: the text has no gap.
static_assert(CGenerateCppDlg::kBoxLimit <= ToolInbox::kCapacity);

class NoGeneratorHost : public GeneratorHost {
 public:
  void Run(CGenerateCppDlg& dialog) override { dialog.Click(IDCANCEL); }
};

}  // namespace

GeneratorHost& GeneratorHost::Default() {
  static NoGeneratorHost service;
  return service;
}

CGenerateCppDlg::CGenerateCppDlg(GeneratorKind kind) : Dialog("Code Generation"), kind(kind) {
  Add(Kind::Edit, kDesignFileId, "Design File:");
  Add(Kind::Edit, kOutputFolderId, "Output Folder:");
  Add(Kind::CheckBox, kDebugId, "Debug Info (-g flag)");
  DialogControl& output = Add(Kind::MultiEdit, kOutputId, "");
  output.code = true;
  output.width = kOutputWidth;
  output.lines = kOutputLines;
  Add(Kind::Row, kButtonsId, "");
  Add(Kind::Button, kGenerateId, "Generate", kButtonsId).isDefault = true;
  Add(Kind::Button, IDCANCEL, "Close", kButtonsId);
}

void CGenerateCppDlg::Run() { Service<GeneratorHost>::Get().Run(*this); }

void CGenerateCppDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kDesignFileId, designFile);
  exchange.Text(kOutputFolderId, outputFolder);
  exchange.Check(kDebugId, debug);
}

void CGenerateCppDlg::OnFilled() {
  outputFolder = FolderOf(designFile);
  const GeneratorTraits& traits = GeneratorTraits::Of(kind);
  SetCaption(LoadText(traits.title));
  if (!traits.hasDebugInfo) {
    debug = 0;
    Enable(kDebugId, false);
  }
  ShowFields();
}

void CGenerateCppDlg::OnClicked(int id) {
  if (id == kGenerateId) Generate();
}

void CGenerateCppDlg::Generate() {
  Control(kOutputId).text.clear();
  if (outputBox != nullptr) outputBox->Clear();
  TakeFields();
  LaunchTool(CommandLine(), false);
}

std::string CGenerateCppDlg::CommandLine() const {
  const GeneratorTraits& traits = GeneratorTraits::Of(kind);
  std::string line = GetInstallFolder() + kToolFolder + traits.tool;
  if (traits.hasDebugInfo && debug != 0) line += kDebugFlag;
  return line + designFile;
}

void CGenerateCppDlg::AppendOutput(const std::string& text) {
  if (!IsOpen()) return;
  std::string& output = Control(kOutputId).text;
  output += text;
  if (output.size() > kBoxLimit) output.erase(0, output.size() - kBoxLimit);
  if (outputBox != nullptr) outputBox->Append(text);
}

}  // namespace morvane
