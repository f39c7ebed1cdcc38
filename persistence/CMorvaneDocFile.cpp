#include <utility>

#include "drawing/TextCodec.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/ChartText.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/WaitCursor.h"
#include "recovery/RecoveryStore.h"
#include "resources/Texts.h"

namespace morvane {

// What others do to the file of an open chart, what the user is told of it, and the way back to the
// file.

namespace {

using Answer = DocumentNotice::Answer;

}  // namespace

void CMorvaneDoc::OnPathChanged() {
  const std::string& path = GetPathName();
  Describe(path, file.Stamp());
  openElsewhere = store != nullptr && store->IsOpenElsewhere(path);
  watch = Service<FileWatch>::Get().Start(path, [this] { LookAtFile(); });
  ShowNotices();
}

void CMorvaneDoc::LookAtFile() {
  if (!shown) return;
  const DiskFile::State before = file.Present();
  const DiskFile::State now = file.Look();
  if (now == before) return;
  if (now == DiskFile::State::Gone) {
    // The chart stands nowhere but here.
    savedText = nullptr;
    OnTextChanged(Chart()->SnapshotText());
  }
  ShowNotices();
}

std::string CMorvaneDoc::StatusText() const {
  return emptyFile ? LoadText(IDS_FILE_EMPTY) : std::string();
}

std::vector<DocumentNotice> CMorvaneDoc::Notices() const {
  std::vector<DocumentNotice> notices;
  switch (file.Present()) {
    case DiskFile::State::Changed:
      notices.push_back(
          {LoadText(IDS_FILE_CHANGED),
           {{Answer::Reload, Translate("Reload")}, {Answer::KeepMine, Translate("Keep mine")}}});
      break;
    case DiskFile::State::Gone:
      notices.push_back(
          {LoadText(IDS_FILE_GONE),
           {{Answer::Save, Translate("Save")}, {Answer::KeepMine, Translate("Keep mine")}}});
      break;
    case DiskFile::State::Same: break;
  }
  if (openElsewhere) {
    notices.push_back({LoadText(IDS_OPEN_ELSEWHERE), {{Answer::Dismiss, Translate("Close")}}});
  }
  AddEncodingNotice(notices);
  if (notKept) notices.push_back({LoadText(IDS_NOT_KEPT), {{Answer::Save, Translate("Save")}}});
  return notices;
}

/// Undoing and redoing a conversion brings the bar and takes it away.
void CMorvaneDoc::LookAtEncoding(const SharedText& text) {
  const bool isOld = text != nullptr && !IsValidUtf8(*text);
  if (isOld) becameUtf8 = false;
  if (std::exchange(hasOldTexts, isOld) != isOld) ShowNotices();
}

void CMorvaneDoc::OnEncodingChanged(EncodingChange change) {
  becameUtf8 = change == EncodingChange::MadeUtf8;
  if (encodingBar == EncodingBar::Closed) encodingBar = EncodingBar::Open;
  ShowNotices();
}

void CMorvaneDoc::AddEncodingNotice(std::vector<DocumentNotice>& notices) const {
  const DocumentNotice::Button close{Answer::CloseEncoding, Translate("Close")};
  if (becameUtf8) notices.push_back({LoadText(IDS_BECAME_UTF8), {close}});
  if (!hasOldTexts || encodingBar != EncodingBar::Open) return;
  const bool isMixed = Chart()->FoundEncoding() == TextEncoding::Mixed;
  notices.push_back({LoadText(isMixed ? IDS_MIXED_ENCODING : IDS_OLD_ENCODING),
                     {{Answer::Convert, Translate("Convert to UTF-8")},
                      {Answer::KeepEncoding, Translate("Keep Windows-1252")},
                      close}});
}

void CMorvaneDoc::OnNoticeAnswered(Answer answer) {
  switch (answer) {
    case Answer::Reload: Revert(); break;
    case Answer::Save: DoFileSave(); break;
    case Answer::KeepMine:
      file.Accept();
      // What is on the disk is another chart than this one.
      savedText = nullptr;
      OnTextChanged(Chart()->SnapshotText());
      break;
    case Answer::Dismiss: openElsewhere = false; break;
    case Answer::Convert: Chart()->ConvertToUtf8(); break;
    case Answer::KeepEncoding: encodingBar = EncodingBar::Answered; break;
    case Answer::CloseEncoding:
      if (!becameUtf8) encodingBar = EncodingBar::Closed;
      becameUtf8 = false;
      break;
  }
  ShowNotices();
}

bool CMorvaneDoc::MayOverwrite(const std::string& path) {
  if (path != GetPathName() || file.Look() != DiskFile::State::Changed) return true;
  ShowNotices();
  return ShowMessage(WithName(LoadText(IDS_OVERWRITE_CHANGED), ToUtf8(FileNameOf(path))),
                     kConfirmFlags) == MessageAnswer::Yes;
}

bool CMorvaneDoc::CanRevert() const {
  return !GetPathName().empty() && (marked || file.Present() == DiskFile::State::Changed) &&
         file.Present() != DiskFile::State::Gone;
}

void CMorvaneDoc::Revert() {
  const std::string question =
      WithName(LoadText(IDS_CONFIRM_REVERT), ToUtf8(FileNameOf(GetPathName())));
  if (IsModified() && ShowMessage(question, kConfirmFlags) != MessageAnswer::Yes) return;
  const WaitCursor wait;
  if (Reload()) ShowNotices();
}

/// Shows the chart of the file as a change that can be undone. False after a message.
bool CMorvaneDoc::Reload() {
  const std::string& path = GetPathName();
  const FileStamp stamp = FileStamp::Of(path);
  std::string onDisk;
  std::string reason = ModelFile::ReadText(path, onDisk);
  const bool isEmpty = reason.empty() && onDisk.empty();
  const std::string text = isEmpty ? Chart()->EmptyText() : onDisk;
  if (reason.empty() && Chart()->ReplaceText(text, reason)) {
    emptyFile = isEmpty;
    file.Remember(path, stamp, onDisk);
    RememberSavedText();
    return true;
  }
  ReportError(path, reason);
  return false;
}

}  // namespace morvane
