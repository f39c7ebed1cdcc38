#include "persistence/CDocument.h"
#include "platform/MessageBox.h"
#include "platform/Service.h"
#include "resources/Texts.h"
#include "surface/Generators.h"
#include "surface/LayoutMgr.h"

// The run of a generator on the saved chart.

void LayoutMgr::GenerateFile(unsigned command) {
  if (!EnsureModelSaved()) return;
  Service<Generators>::Get().Run(command, GetDocument()->GetPathName());
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
