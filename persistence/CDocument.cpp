#include "persistence/CDocument.h"

#include "drawing/TextCodec.h"
#include "persistence/ChartText.h"
#include "persistence/DocumentManager.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

CDocument::CDocument() = default;
CDocument::~CDocument() = default;

void CDocument::SetView(std::unique_ptr<CScrollView> made) {
  view = std::move(made);
  if (auto* chart = dynamic_cast<ChartText*>(view.get())) chart->SetDocument(this);
}

void CDocument::SetPathName(const std::string& path) {
  pathName = path;
  SetTitle(FileNameOf(path));
  OnPathChanged();
}

void CDocument::SetTitle(const std::string& text) {
  title = text;
  ShowTitle();
}

void CDocument::ShowTitle() {
  if (manager != nullptr) manager->OnTitleChanged(*this);
}

void CDocument::ShowNotices() {
  if (manager != nullptr) manager->OnNoticesChanged(*this);
}

bool CDocument::OnNewDocument() {
  modified = false;
  pathName.clear();
  return true;
}

bool CDocument::BringForward() { return manager != nullptr && manager->BringForward(*this); }

bool CDocument::DoFileSave() { return pathName.empty() ? DoFileSaveAs() : SaveTo(pathName); }

bool CDocument::DoFileSaveAs() {
  if (manager == nullptr) return false;
  const Dialogs::FileFilter& filter = manager->Template().filter;
  const std::string suggestion = pathName.empty() ? title + filter.extension : pathName;
  const auto path = AskSavePath(filter, suggestion);
  return path && SaveTo(*path);
}

bool CDocument::SaveTo(const std::string& path) {
  if (manager != nullptr && manager->IsOpenInOther(*this, path)) {
    ShowMessage(WithName(LoadText(IDS_OPEN_IN_OTHER_WINDOW), ToUtf8(FileNameOf(path))),
                MB_ICONEXCLAMATION);
    return false;
  }
  if (!MayOverwrite(path) || !OnSaveDocument(path)) return false;
  SetPathName(path);
  if (manager != nullptr) manager->Recent().Add(FullPath(path));
  return true;
}

bool CDocument::SaveModified() {
  if (view != nullptr) view->FinishTyping();
  if (!IsModified()) return true;
  switch (ShowMessage(WithName(LoadText(IDS_SAVE_CHANGES), ToUtf8(title)),
                      MB_YESNOCANCEL | MB_ICONEXCLAMATION)) {
    case MessageAnswer::Yes: return DoFileSave();
    case MessageAnswer::No: return true;
    default: return false;
  }
}

}  // namespace morvane
