#include "codegen/CGenerateCppDlg.h"

#include <array>
#include <cstdio>

#include "codegen/ChartPlaces.h"
#include "codegen/PlacedMessage.h"
#include "codegen/ToolInbox.h"
#include "drawing/TextCodec.h"
#include "platform/FieldExchange.h"
#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"
#include "platform/ShellOpen.h"
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

/// A number below zero is one of a system that has them for exceptions, and writes them like that.
std::string NumberText(int number) {
  if (number >= 0) return std::to_string(number);
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(number));
  return text.data();
}

/// How a run ended, for the user.
std::string TextOf(const std::optional<ProcessEnd>& end) {
  if (!end) return LoadText(IDS_TOOL_ENDED);
  const bool exited = end->how == ProcessEnd::How::Exited;
  if (exited && end->number == 0) return LoadText(IDS_TOOL_FINISHED);
  return WithName(LoadText(exited ? IDS_TOOL_EXIT_CODE : IDS_TOOL_SIGNAL), NumberText(end->number));
}

class NoGeneratorHost : public GeneratorHost {
 public:
  void Run(CGenerateCppDlg& dialog) override { dialog.Click(IDCANCEL); }
};

}  // namespace

GeneratorHost& GeneratorHost::Default() {
  static NoGeneratorHost service;
  return service;
}

CGenerateCppDlg::CGenerateCppDlg(GeneratorKind kind, const ChartPlaces* chart)
    : Dialog("Code Generation"), kind(kind), chart(chart) {
  Add(Kind::Edit, kDesignFileId, "D&esign File:");
  Add(Kind::Edit, kOutputFolderId, "O&utput Folder:");
  Add(Kind::Edit, kCommandId, "&Command Line:");
  Add(Kind::CheckBox, kDebugId, "&Debug Info (-g flag)");
  Add(Kind::Edit, kStatusId, "Status:").text = LoadText(IDS_TOOL_NOT_RUN);
  DialogControl& output = Add(Kind::MultiEdit, kOutputId, "");
  output.code = true;
  output.width = kOutputWidth;
  output.lines = kOutputLines;
  Add(Kind::Row, kButtonsId, "");
  Add(Kind::Button, kOpenFolderId, "&Open Folder", kButtonsId);
  Add(Kind::Button, kGenerateId, "&Generate", kButtonsId).isDefault = true;
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
  if (id == kOpenFolderId) OpenFolder();
}

void CGenerateCppDlg::Generate() {
  Control(kOutputId).text.clear();
  if (outputBox != nullptr) outputBox->Clear();
  TakeFields();
  const std::string commandLine = CommandLine();
  Control(kCommandId).text = commandLine;
  if (!LaunchTool(commandLine, false)) ShowStatus(LoadText(IDS_TOOL_NOT_STARTED));
}

void CGenerateCppDlg::OnToolStarted(const std::string& /*commandLine*/) {
  ShowStatus(LoadText(IDS_TOOL_RUNS));
}

void CGenerateCppDlg::OnToolExited() { ShowStatus(TextOf(ToolEnd())); }

void CGenerateCppDlg::ShowStatus(std::string text) {
  Control(kStatusId).text = std::move(text);
  Refresh();
}

void CGenerateCppDlg::OpenFolder() const {
  switch (Service<ShellOpen>::Get().OpenFile(outputFolder)) {
    case OpenResult::Opened: break;
    case OpenResult::NotFound:
      ShowMessage(WithName(LoadText(IDS_FOLDER_NOT_THERE), ToUtf8(outputFolder)),
                  MB_ICONEXCLAMATION);
      break;
    case OpenResult::NoProgram:
    case OpenResult::Failed:
      ShowMessage(WithName(LoadText(IDS_FOLDER_NOT_SHOWN), ToUtf8(outputFolder)),
                  MB_ICONEXCLAMATION);
      break;
  }
}

void CGenerateCppDlg::FollowLine(std::string_view line) {
  const auto message = PlacedMessage::Parse(line);
  if (!message || chart == nullptr || !IsOpen()) return;
  if (const auto place = chart->Show(*message)) {
    if (outputBox != nullptr) outputBox->MakeRoomFor(*place);
  } else {
    ShowMessage(LoadText(IDS_PLACE_GONE), MB_ICONEXCLAMATION);
  }
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
