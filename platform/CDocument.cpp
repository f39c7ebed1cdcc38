#include "platform/CDocument.h"

#include "platform/CDocManager.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace {

/// A question with the title in the place of its "%1".
std::string WithTitle(std::string question, const std::string& title) {
  const std::size_t place = question.find("%1");
  if (place != std::string::npos) question.replace(place, 2, title);
  return question;
}

}  // namespace

CDocument::CDocument() = default;
CDocument::~CDocument() = default;

void CDocument::SetView(std::unique_ptr<CScrollView> made) {
  view = std::move(made);
  view->SetDocument(this);
}

void CDocument::SetPathName(const std::string& path) {
  pathName = path;
  SetTitle(FileNameOf(path));
}

void CDocument::SetTitle(const std::string& text) {
  title = text;
  if (manager != nullptr) manager->OnTitleChanged(*this);
}

bool CDocument::OnNewDocument() {
  modified = false;
  pathName.clear();
  return true;
}

bool CDocument::DoFileSave() { return pathName.empty() ? DoFileSaveAs() : SaveTo(pathName); }

bool CDocument::DoFileSaveAs() {
  if (manager == nullptr) return false;
  const Dialogs::FileFilter& filter = manager->Template().filter;
  const std::string suggestion = pathName.empty() ? title + filter.extension : pathName;
  const auto path = Service<Dialogs>::Get().AskSavePath(filter, suggestion);
  return path && SaveTo(*path);
}

bool CDocument::SaveTo(const std::string& path) {
  if (!OnSaveDocument(path)) return false;
  SetPathName(path);
  if (manager != nullptr) manager->Recent().Add(FullPath(path));
  return true;
}

bool CDocument::SaveModified() {
  if (!IsModified()) return true;
  switch (ShowMessage(WithTitle(LoadText(IDS_SAVE_CHANGES), title),
                      MB_YESNOCANCEL | MB_ICONEXCLAMATION)) {
    case MessageAnswer::Yes: return DoFileSave();
    case MessageAnswer::No: return true;
    default: return false;
  }
}
