#include "persistence/DocumentManager.h"

#include <algorithm>

#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/ModalLoop.h"

namespace morvane {

DocumentManager::DocumentManager(DocumentKind documentTemplate, FrameHost& host)
    : documentTemplate(std::move(documentTemplate)), host(host) {
  recent.Load();
}

DocumentManager::~DocumentManager() = default;

CDocument* DocumentManager::AddDocument() {
  DropClosed();
  documents.push_back(documentTemplate.makeDocument());
  CDocument& document = *documents.back();
  document.SetView(documentTemplate.makeView());
  host.CreateFrame(document);
  document.SetManager(this);
  return &document;
}

void DocumentManager::ShowDocument(CDocument& document) {
  document.GetView()->OnInitialUpdate();
  host.ShowFrame(document);
}

CDocument* DocumentManager::NewDocument() {
  CDocument* document = AddDocument();
  document->SetTitle(documentTemplate.baseName + std::to_string(++lastNumber));
  if (!document->OnNewDocument()) {
    CloseDocument(*document);
    return nullptr;
  }
  ShowDocument(*document);
  return document;
}

CDocument* DocumentManager::FindByPath(const std::string& fullPath) const {
  const auto found = std::find_if(documents.begin(), documents.end(), [&](const auto& document) {
    return !document->GetPathName().empty() && FullPath(document->GetPathName()) == fullPath;
  });
  return found == documents.end() ? nullptr : found->get();
}

bool DocumentManager::IsOpenInOther(const CDocument& document, const std::string& path) const {
  const std::string fullPath = FullPath(path);
  return std::ranges::any_of(documents, [&](const auto& open) {
    return open.get() != &document && !open->GetPathName().empty() &&
           FullPath(open->GetPathName()) == fullPath;
  });
}

void DocumentManager::LookAtFiles() {
  for (const auto& document : documents) document->LookAtFile();
}

CDocument* DocumentManager::OpenDocumentFile(const std::string& path) {
  const std::string fullPath = FullPath(path);
  if (CDocument* open = FindByPath(fullPath)) {
    host.ActivateFrame(*open);
    return open;
  }
  CDocument* document = AddDocument();
  if (!document->OnOpenDocument(path)) {
    CloseDocument(*document);
    recent.Remove(fullPath);
    return nullptr;
  }
  document->SetPathName(fullPath);
  ShowDocument(*document);
  // Last: a message that the list cannot be stored shows the chart behind it.
  recent.Add(fullPath);
  return document;
}

void DocumentManager::OnFileOpen() {
  if (const auto path = AskOpenPath(documentTemplate.filter)) {
    OpenDocumentFile(*path);
  }
}

void DocumentManager::OnOpenRecentFile(std::size_t index) {
  if (index >= recent.Paths().size()) return;
  const std::string path = recent.Paths()[index];
  OpenDocumentFile(path);
}

bool DocumentManager::BringForward(CDocument& document) {
  if (std::ranges::find(documents, &document, &std::unique_ptr<CDocument>::get) ==
      documents.end()) {
    return false;
  }
  host.ActivateFrame(document);
  return true;
}

void DocumentManager::CloseDocument(CDocument& document) {
  document.OnCloseDocument();
  host.CloseFrame(document);
  const auto place =
      std::ranges::find_if(documents, [&](const auto& open) { return open.get() == &document; });
  closed.push_back(std::move(*place));
  documents.erase(place);
  DropClosed();
}

/// An operation on a document that was closed may still wait for the user: it lives until then.
void DocumentManager::DropClosed() {
  if (!ModalLoop::IsRunning()) closed.clear();
}

bool DocumentManager::SaveAllModified() {
  return std::all_of(documents.begin(), documents.end(),
                     [](const auto& document) { return document->SaveModified(); });
}

void DocumentManager::CloseAllDocuments() {
  while (!documents.empty()) CloseDocument(*documents.back());
}

}  // namespace morvane
