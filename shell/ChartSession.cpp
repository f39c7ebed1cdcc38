#include "shell/ChartSession.h"

#include "persistence/CMorvaneDoc.h"
#include "persistence/DocumentManager.h"
#include "persistence/ModelFile.h"
#include "recovery/RecoveryOffer.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

bool IsReadableChart(const std::string& path) {
  std::string text;
  LayoutMgr chart;
  if (path.empty() || !ModelFile::ReadText(path, text).empty()) return false;
  return text.empty() || ModelFile::Parse(text, chart).empty();
}

CMorvaneDoc* NewChartFor(DocumentManager& manager, const RecoveryOffer& offer) {
  auto* document = dynamic_cast<CMorvaneDoc*>(manager.NewDocument());
  if (document == nullptr) return nullptr;
  if (!offer.path.empty()) {
    document->SetPathName(offer.path);
  } else if (!offer.title.empty()) {
    document->SetTitle(offer.title);
  }
  return document;
}

}  // namespace

SessionRecord WindowsOf(const DocumentManager& manager, const CDocument* active) {
  SessionRecord windows;
  for (const auto& document : manager.Documents()) {
    if (!document->GetPathName().empty()) windows.paths.push_back(document->GetPathName());
  }
  if (active != nullptr) windows.active = active->GetPathName();
  return windows;
}

void ReopenWindows(DocumentManager& manager, const SessionRecord& windows) {
  for (const std::string& path : windows.paths) {
    if (FileStamp::Of(path).exists) manager.OpenDocumentFile(path);
  }
  // Brings its window forward; it is open already.
  if (FileStamp::Of(windows.active).exists) manager.OpenDocumentFile(windows.active);
}

bool RecoverChart(DocumentManager& manager, RecoveryOffer& offer) {
  if (IsReadableChart(offer.path)) {
    auto* document = dynamic_cast<CMorvaneDoc*>(manager.OpenDocumentFile(offer.path));
    return document != nullptr && document->Recover(offer);
  }
  CMorvaneDoc* document = NewChartFor(manager, offer);
  if (document == nullptr) return false;
  if (document->Recover(offer)) return true;
  manager.CloseDocument(*document);
  return false;
}

}  // namespace morvane
