#pragma once

#include <string>

#include "platform/CDocument.h"

class LayoutMgr;

/// One open chart. The chart itself lives in the view; the document opens, saves, and finds out by
/// comparing texts whether the chart has changed since the last save.
class CMorvaneDoc : public CDocument {
 public:
  bool IsModified() override;
  bool OnOpenDocument(const std::string& path) override;
  bool OnSaveDocument(const std::string& path) override;

  /// Keeps the present text as the one that was saved.
  void RememberSavedText();
  /// Shows the path and the reason in a message box.
  static void ReportError(const std::string& path, const std::string& reason);

 private:
  LayoutMgr* View() const;

  std::string savedText;
};
