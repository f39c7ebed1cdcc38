#include "codegen/CGenerateCppDlg.h"

#include "codegen/ToolInbox.h"
#include "platform/DataExchange.h"
#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "resources/Texts.h"

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

CGenerateCppDlg::CGenerateCppDlg(GeneratorKind kind) : CDialog("Code Generation"), kind(kind) {
  Add(Kind::Edit, IDC_DESIGN_FILE, "Design File:");
  Add(Kind::Edit, IDC_OUTPUT_FOLDER, "Output Folder:");
  Add(Kind::CheckBox, IDC_DEBUG, "Debug Info (-g flag)");
  DialogControl& output = Add(Kind::MultiEdit, IDC_OUTPUT, "");
  output.code = true;
  output.width = kOutputWidth;
  output.lines = kOutputLines;
  Add(Kind::Row, IDC_BUTTONS, "");
  Add(Kind::Button, IDC_GENERATE, "Generate", IDC_BUTTONS).isDefault = true;
  Add(Kind::Button, IDCANCEL, "Close", IDC_BUTTONS);
}

void CGenerateCppDlg::Run() { Service<GeneratorHost>::Get().Run(*this); }

void CGenerateCppDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_DESIGN_FILE, designFile);
  exchange.Text(IDC_OUTPUT_FOLDER, outputFolder);
  exchange.Check(IDC_DEBUG, debug);
}

void CGenerateCppDlg::OnInitDialog() {
  outputFolder = FolderOf(designFile);
  const GeneratorTraits& traits = GeneratorTraits::Of(kind);
  SetCaption(LoadText(traits.title));
  if (!traits.hasDebugInfo) {
    debug = 0;
    Enable(IDC_DEBUG, false);
  }
  UpdateData(false);
}

void CGenerateCppDlg::OnClicked(int id) {
  if (id == IDC_GENERATE) Generate();
}

void CGenerateCppDlg::Generate() {
  Control(IDC_OUTPUT).text.clear();
  if (outputBox != nullptr) outputBox->Clear();
  UpdateData(true);
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
  std::string& output = Control(IDC_OUTPUT).text;
  output += text;
  if (output.size() > kBoxLimit) output.erase(0, output.size() - kBoxLimit);
  if (outputBox != nullptr) outputBox->Append(text);
}
