#pragma once

#include <memory>
#include <string>

#include "persistence/CDocument.h"
#include "persistence/DiskFile.h"
#include "platform/FileWatch.h"
#include "platform/SharedText.h"

namespace morvane {

class ChartText;
class RecoveryEntry;
class RecoveryStore;
struct RecoveryOffer;

/// One open chart. The chart itself lives in the view; the document opens, saves, finds out by
/// comparing texts whether the chart has changed since the last save, keeps unsaved work in the
/// recovery store, and notices what other programs do to the file.
class CMorvaneDoc : public CDocument {
 public:
  /// Without a store unsaved work isn't kept; the store has to outlive the document.
  explicit CMorvaneDoc(RecoveryStore* store = nullptr);
  ~CMorvaneDoc() override;

  bool IsModified() override;
  bool OnNewDocument() override;
  bool OnOpenDocument(const std::string& path) override;
  bool OnSaveDocument(const std::string& path) override;
  void OnCloseDocument() override;
  void OnTextChanged(const SharedText& text) override;
  void OnEncodingChanged(EncodingChange change) override;

  bool HasUnsavedMark() const override { return marked; }
  std::string StatusText() const override;
  std::vector<DocumentNotice> Notices() const override;
  void OnNoticeAnswered(DocumentNotice::Answer answer) override;
  void LookAtFile() override;
  bool CanRevert() const override;
  void Revert() override;

  /// Keeps the present text as the one that was saved.
  void RememberSavedText();
  /// Shows work that an earlier run left behind, as a change that can be undone and is still
  /// unsaved. False, after a message and with nothing changed, when it can't be read. Its entry in
  /// the store goes once this chart's own holds the text.
  bool Recover(RecoveryOffer& offer);
  /// Shows the path and the reason in a message box.
  static void ReportError(const std::string& path, const std::string& reason);

 protected:
  void OnPathChanged() override;
  bool MayOverwrite(const std::string& path) override;

 private:
  ChartText* Chart() const;
  SharedText PresentText() const;
  void SetMarked(bool on);
  /// What the store shall know: the file at `path`, which may be about to change.
  void Describe(const std::string& path, const FileStamp& stamp) const;
  void KeepOrDrop(const SharedText& text);
  void LookAtEncoding(const SharedText& text);
  void AddEncodingNotice(std::vector<DocumentNotice>& notices) const;
  std::string Write(const std::string& path, const SharedText& text);
  bool Reload();

  RecoveryStore* store;
  std::unique_ptr<RecoveryEntry> entry;  ///< null where nothing is kept
  SharedText savedText;                  ///< null: whatever the chart holds is unsaved
  bool shown = false;                    ///< the view has shown the chart, and what it holds counts
  bool marked = false;
  bool emptyFile = false;  ///< the file was opened with nothing in it
  bool openElsewhere = false;
  /// What the bar on the encoding of the texts has to say.
  enum class EncodingBar { Open, Closed, Answered };
  EncodingBar encodingBar = EncodingBar::Open;
  bool hasOldTexts = false;  ///< some are in Windows-1252
  bool becameUtf8 = false;   ///< all were converted for the sake of one
  bool notKept = false;      ///< the store does not take the unsaved work
  DiskFile file;
  std::unique_ptr<FileWatch::Handle> watch;
};

}  // namespace morvane
