#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "persistence/RecentFiles.h"
#include "platform/Dialogs.h"

namespace morvane {

class CDocument;
class CScrollView;

/// What kind of document the program has.
struct DocumentKind {
  std::string baseName;  ///< of a new document; a number is added
  Dialogs::FileFilter filter;
  std::function<std::unique_ptr<CDocument>()> makeDocument;
  std::function<std::unique_ptr<CScrollView>()> makeView;
};

/// The windows around documents, made by the shell.
class FrameHost {
 public:
  virtual ~FrameHost() = default;
  /// Makes the window of a document and ties it to the document's view. It isn't shown yet.
  virtual void CreateFrame(CDocument& document) = 0;
  virtual void ShowFrame(CDocument& document) = 0;
  virtual void ActivateFrame(CDocument& document) = 0;
  /// Takes the window away. The document lives a little longer.
  virtual void CloseFrame(CDocument& document) = 0;
  /// Shows the title of a document, whether it has unsaved changes, and its status text.
  virtual void UpdateTitle(CDocument& document) = 0;
  /// Shows the notices of a document.
  virtual void UpdateNotices(CDocument& /*document*/) {}
};

/// The open documents of the program; it owns them.
class DocumentManager {
 public:
  DocumentManager(DocumentKind documentTemplate, FrameHost& host);
  ~DocumentManager();
  DocumentManager(const DocumentManager&) = delete;
  DocumentManager& operator=(const DocumentManager&) = delete;

  /// A new document in a window of its own.
  CDocument* NewDocument();
  /// Opens a file, or brings the window forward that shows it already. Null, after a message, when
  /// it can't be opened.
  CDocument* OpenDocumentFile(const std::string& path);
  /// Asks for a file and opens it.
  void OnFileOpen();
  /// Opens an entry of the recent file list, counted from 0.
  void OnOpenRecentFile(std::size_t index);

  /// Brings the window of a document forward; false if the document isn't open any more.
  bool BringForward(CDocument& document);
  /// Closes a document without a question.
  void CloseDocument(CDocument& document);
  /// Offers to save each modified document; false if the user cancelled.
  bool SaveAllModified();
  void CloseAllDocuments();

  const std::vector<std::unique_ptr<CDocument>>& Documents() const { return documents; }
  const DocumentKind& Template() const { return documentTemplate; }
  RecentFiles& Recent() { return recent; }
  void OnTitleChanged(CDocument& document) { host.UpdateTitle(document); }
  void OnNoticesChanged(CDocument& document) { host.UpdateNotices(document); }
  /// The file is that of an open document other than this one.
  bool IsOpenInOther(const CDocument& document, const std::string& path) const;
  /// Finds out of every document what others did to its file meanwhile.
  void LookAtFiles();

 private:
  CDocument* AddDocument();
  void DropClosed();
  void ShowDocument(CDocument& document);
  CDocument* FindByPath(const std::string& fullPath) const;

  DocumentKind documentTemplate;
  FrameHost& host;
  RecentFiles recent;
  std::vector<std::unique_ptr<CDocument>> documents;
  std::vector<std::unique_ptr<CDocument>> closed;  ///< until nothing works on them any more
  int lastNumber = 0;
};

}  // namespace morvane
