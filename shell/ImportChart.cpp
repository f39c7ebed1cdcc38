#include "shell/ImportChart.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "exchange/ScxmlImport.h"
#include "persistence/CDocument.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/DocumentManager.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/WaitCursor.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// A message box shows so many lines; all of them stand in the note.
constexpr std::size_t kMostLines = 15;

ImportResult Imported(const std::string& path) {
  const WaitCursor wait;
  return ImportScxmlFile(path);
}

void TellRemarks(const std::string& path, ImportRemarks remarks) {
  if (remarks.empty()) return;
  const bool isLong = remarks.size() > kMostLines;
  remarks.resize(std::min(remarks.size(), kMostLines));
  std::string lines = RemarkLines(FileNameOf(path), remarks);
  if (isLong) lines += "...";
  ShowMessage(LoadText(IDS_IMPORT_REMARKS) + "\n\n" + lines, MB_ICONEXCLAMATION);
}

}  // namespace

void ImportChart(DocumentManager& manager) {
  const std::optional<std::string> path =
      AskOpenPath({Translate("SCXML Files (*.scxml)"), ".scxml"});
  if (!path) return;
  ImportResult made = Imported(*path);
  if (!made.failure.empty()) return CMorvaneDoc::ReportError(*path, made.failure);
  CDocument* document = manager.NewDocument();
  auto* chart = document != nullptr ? dynamic_cast<LayoutMgr*>(document->GetView()) : nullptr;
  if (chart == nullptr) return;
  std::string reason;
  if (!chart->ReplaceText(made.modelText, reason)) {
    return CMorvaneDoc::ReportError(*path, reason);
  }
  TellRemarks(*path, std::move(made.remarks));
}

}  // namespace morvane
