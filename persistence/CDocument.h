#pragma once

#include <memory>
#include <string>
#include <vector>

#include "persistence/TextEncoding.h"
#include "platform/SharedText.h"

namespace morvane {

class DocumentManager;
class CScrollView;

/// Something that the user has to know of a document and can decide later: a bar in its window says
/// it, with a button for each answer.
struct DocumentNotice {
  enum class Answer { Reload, KeepMine, Save, Dismiss, Convert, KeepEncoding, CloseEncoding };
  struct Button {
    Answer answer;
    std::string text;
  };
  std::string text;
  std::vector<Button> buttons;
};

/// One open file: where it lies, what it is called, and the questions about saving it. It owns its
/// one view.
class CDocument {
 public:
  CDocument();
  virtual ~CDocument();
  CDocument(const CDocument&) = delete;
  CDocument& operator=(const CDocument&) = delete;

  void SetManager(DocumentManager* owner) { manager = owner; }
  void SetView(std::unique_ptr<CScrollView> made);
  CScrollView* GetView() const { return view.get(); }

  const std::string& GetPathName() const { return pathName; }
  /// Takes the place of the file, and its name as the title.
  void SetPathName(const std::string& path);
  const std::string& GetTitle() const { return title; }
  void SetTitle(const std::string& text);

  virtual bool IsModified() { return modified; }
  virtual void SetModifiedFlag(bool on) { modified = on; }
  virtual bool OnNewDocument();
  virtual bool OnOpenDocument(const std::string& path) = 0;
  virtual bool OnSaveDocument(const std::string& path) = 0;
  virtual void OnCloseDocument() {}
  /// The chart differs from what was saved, as far as its marks on the screen say.
  virtual bool HasUnsavedMark() const { return false; }
  /// What the status line says while this document is active; empty if it has nothing to say.
  virtual std::string StatusText() const { return {}; }
  /// What the bars in the window say, the most important first.
  virtual std::vector<DocumentNotice> Notices() const { return {}; }
  virtual void OnNoticeAnswered(DocumentNotice::Answer /*answer*/) {}
  /// Finds out what others did to the file meanwhile.
  virtual void LookAtFile() {}
  /// The chart can go back to what its file holds.
  virtual bool CanRevert() const { return false; }
  /// Goes back to what the file holds, after a question where that takes changes away.
  virtual void Revert() {}
  /// Texts of what the view shows were put into another encoding than the user entered them in.
  virtual void OnEncodingChanged(EncodingChange /*change*/) {}
  /// What the view shows has another text now, or may have.
  virtual void OnTextChanged(const SharedText& /*text*/) {}

  /// Brings the window of the document forward; false if it was closed.
  bool BringForward();
  /// Saves under the present path, or asks for one.
  bool DoFileSave();
  /// Asks for a path and saves there.
  bool DoFileSaveAs();
  /// Offers to save a modified document. False means that the user wants to go on working on it.
  bool SaveModified();

 protected:
  /// The place of the file is another one now.
  virtual void OnPathChanged() {}
  /// Asks before a file is overwritten that is not the one that was read.
  virtual bool MayOverwrite(const std::string& /*path*/) { return true; }
  /// Shows title, mark and status text, or the notices, anew.
  void ShowTitle();
  void ShowNotices();

 private:
  bool SaveTo(const std::string& path);

  DocumentManager* manager = nullptr;
  std::unique_ptr<CScrollView> view;
  std::string pathName;
  std::string title;
  bool modified = false;
};

}  // namespace morvane
