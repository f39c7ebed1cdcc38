#include "persistence/CMorvaneDoc.h"

#include <exception>

#include "persistence/ModelFile.h"
#include "platform/CWaitCursor.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"

LayoutMgr* CMorvaneDoc::View() const { return dynamic_cast<LayoutMgr*>(GetView()); }

bool CMorvaneDoc::IsModified() {
  std::string text;
  try {
    text = View()->ModelText();
  } catch (const std::exception&) {
    text.clear();
  }
  return text != savedText;
}

void CMorvaneDoc::RememberSavedText() {
  try {
    savedText = View()->ModelText();
  } catch (const std::exception&) {
    // Without memory for another copy the former text stays.
  }
}

bool CMorvaneDoc::OnOpenDocument(const std::string& path) {
  if (IsEmptyFile(path)) return OnNewDocument();
  std::string reason;
  {
    const CWaitCursor wait;
    reason = ModelFile::Load(path, *View());
  }
  if (!reason.empty()) ReportError(path, reason);
  return reason.empty();
}

bool CMorvaneDoc::OnSaveDocument(const std::string& path) {
  std::string reason;
  {
    const CWaitCursor wait;
    try {
      reason = ModelFile::Save(path, View()->ModelText());
    } catch (const std::exception&) {
      reason = LoadText(IDS_UNKNOWN_ERROR);
    }
    if (reason.empty()) RememberSavedText();
  }
  if (!reason.empty()) ReportError(path, reason);
  return reason.empty();
}

void CMorvaneDoc::ReportError(const std::string& path, const std::string& reason) {
  ShowMessage(path + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
}
