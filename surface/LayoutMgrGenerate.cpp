#include <memory>

#include "codegen/CGenerateCppDlg.h"
#include "platform/CDocument.h"
#include "platform/CWaitCursor.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"

// The run of a generator on the saved chart.

void LayoutMgr::GenerateFile(GeneratorKind kind) {
  if (!EnsureModelSaved()) return;
  auto dialog = std::make_unique<CGenerateCppDlg>(kind);
  dialog->SetDesignFile(GetDocument()->GetPathName());
  dialog->DoModal();
  // The end of the tool takes its time.
  const CWaitCursor wait;
  dialog.reset();
}

bool LayoutMgr::EnsureModelSaved() {
  if (GetDocument()->IsModified()) {
    if (ShowMessage(LoadText(IDS_SAVE_BEFORE_GENERATE), MB_OKCANCEL | MB_ICONHAND) !=
        MessageAnswer::Ok) {
      return false;
    }
    GetDocument()->DoFileSave();
  }
  if (!GetDocument()->GetPathName().empty()) return true;
  ShowMessage(LoadText(IDS_NOTHING_TO_GENERATE), MB_ICONHAND);
  return false;
}
