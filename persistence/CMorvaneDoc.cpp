#include "persistence/CMorvaneDoc.h"

#include <exception>
#include <utility>

#include "drawing/TextCodec.h"
#include "persistence/ChartText.h"
#include "persistence/ModelFile.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/WaitCursor.h"
#include "recovery/RecoveryStore.h"
#include "resources/Texts.h"

namespace morvane {

// What a chart says of its file to the user, and the way back to it, is in CMorvaneDocFile.cpp.

CMorvaneDoc::CMorvaneDoc(RecoveryStore* store)
    : store(store), entry(store != nullptr ? store->NewEntry() : nullptr) {}

CMorvaneDoc::~CMorvaneDoc() = default;

ChartText* CMorvaneDoc::Chart() const { return dynamic_cast<ChartText*>(GetView()); }

/// The text of the chart, shared with the undo history where that has the same.
SharedText CMorvaneDoc::PresentText() const {
  std::string text = Chart()->ModelText();
  SharedText snapshot = Chart()->SnapshotText();
  if (snapshot != nullptr && *snapshot == text) return snapshot;
  return std::make_shared<const std::string>(std::move(text));
}

bool CMorvaneDoc::IsModified() {
  try {
    return savedText == nullptr || Chart()->ModelText() != *savedText;
  } catch (const std::exception&) {
    return true;
  }
}

void CMorvaneDoc::RememberSavedText() {
  try {
    savedText = PresentText();
    shown = true;
    OnTextChanged(savedText);
  } catch (const std::exception&) {
    // Without memory for another copy the former text stays.
  }
}

void CMorvaneDoc::SetMarked(bool on) {
  if (on == marked) return;
  marked = on;
  ShowTitle();
}

void CMorvaneDoc::OnTextChanged(const SharedText& text) {
  if (!shown) return;
  SetMarked(!IsSameText(text, savedText));
  KeepOrDrop(text);
  LookAtEncoding(text);
}

void CMorvaneDoc::KeepOrDrop(const SharedText& text) {
  if (entry != nullptr && marked) {
    Describe(GetPathName(), file.Stamp());
    entry->Keep(text);
  } else if (entry != nullptr) {
    entry->Drop();
  }
  // What the disk said to the former text; it may take a moment for this one.
  const bool fails = store != nullptr && marked && (entry == nullptr || !store->IsKeeping());
  if (std::exchange(notKept, fails) != fails) ShowNotices();
}

void CMorvaneDoc::Describe(const std::string& path, const FileStamp& stamp) const {
  if (entry != nullptr) entry->Describe({path.empty() ? path : FullPath(path), GetTitle(), stamp});
}

bool CMorvaneDoc::OnNewDocument() {
  file.Forget();
  return CDocument::OnNewDocument();
}

bool CMorvaneDoc::OnOpenDocument(const std::string& path) {
  const FileStamp stamp = FileStamp::Of(path);
  if (IsEmptyFile(path)) {
    if (!OnNewDocument()) return false;
    emptyFile = true;
    file.Remember(path, stamp, "");
    return true;
  }
  std::string reason;
  {
    const WaitCursor wait;
    std::string text;
    reason = ModelFile::ReadText(path, text);
    if (reason.empty()) reason = ModelFile::Parse(text, *Chart());
    if (reason.empty()) file.Remember(path, stamp, text);
  }
  if (!reason.empty()) ReportError(path, reason);
  return reason.empty();
}

bool CMorvaneDoc::OnSaveDocument(const std::string& path) {
  std::string reason;
  {
    const WaitCursor wait;
    try {
      reason = Write(path, PresentText());
    } catch (const std::exception&) {
      reason = LoadText(IDS_UNKNOWN_ERROR);
    }
  }
  if (!reason.empty()) ReportError(path, reason);
  return reason.empty();
}

/// The reason for the user; empty on success. The old file is overwritten where it stands, so until
/// the new one is whole its text is safe in the store.
std::string CMorvaneDoc::Write(const std::string& path, const SharedText& text) {
  if (entry != nullptr) {
    Describe(path, {});
    entry->KeepNow(text);
  }
  std::string reason = ModelFile::Save(path, *text);
  if (reason.empty()) {
    savedText = text;
    emptyFile = false;
    file.Remember(path, FileStamp::Of(path), *text);
  }
  shown = true;
  OnTextChanged(text);
  if (reason.empty()) ShowTitle();
  return reason;
}

void CMorvaneDoc::OnCloseDocument() {
  watch.reset();
  if (entry != nullptr) entry->Drop();
  entry.reset();
  shown = false;
}

bool CMorvaneDoc::Recover(RecoveryOffer& offer) {
  std::string reason;
  if (!Chart()->ReplaceText(offer.text, reason)) {
    ReportError(offer.path.empty() ? offer.title : offer.path, reason);
    return false;
  }
  // A stamp that says nothing is that of a file which was just being saved.
  file.RememberStamp(offer.path, offer.stamp.exists ? offer.stamp : FileStamp::Of(offer.path));
  LookAtFile();
  if (offer.entry == nullptr) return true;
  if (entry == nullptr || !marked) {
    if (!marked) offer.entry->Drop();
    return true;
  }
  Describe(GetPathName(), file.Stamp());
  if (entry->KeepNow(Chart()->SnapshotText())) offer.entry->Drop();
  return true;
}

void CMorvaneDoc::ReportError(const std::string& path, const std::string& reason) {
  ShowMessage(ToUtf8(path) + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
}

}  // namespace morvane
