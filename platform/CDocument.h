#pragma once

#include <memory>
#include <string>

#include "platform/SharedText.h"

class CDocManager;
class CScrollView;

/// One open file: where it lies, what it is called, and the questions about saving it. It owns its
/// one view.
class CDocument {
 public:
  CDocument();
  virtual ~CDocument();
  CDocument(const CDocument&) = delete;
  CDocument& operator=(const CDocument&) = delete;

  void SetManager(CDocManager* owner) { manager = owner; }
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
  /// What the view shows has another text now, or may have.
  virtual void OnTextChanged(const SharedText& /*text*/) {}

  /// Saves under the present path, or asks for one.
  bool DoFileSave();
  /// Asks for a path and saves there.
  bool DoFileSaveAs();
  /// Offers to save a modified document. False means that the user wants to go on working on it.
  bool SaveModified();

 private:
  bool SaveTo(const std::string& path);

  CDocManager* manager = nullptr;
  std::unique_ptr<CScrollView> view;
  std::string pathName;
  std::string title;
  bool modified = false;
};
