#pragma once

#include "platform/Dialogs.h"

class QFileDialog;

namespace morvane {

/// The desktop's dialogs for files, colours and fonts.
class QtDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;
  std::optional<ExportAnswer> AskExport(const ExportRequest& request) override;
  std::optional<COLORREF> AskColour(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;

 private:
  /// Runs a dialog for saving from a path on. Nothing on Cancel.
  std::optional<std::string> RunSave(QFileDialog& dialog, const std::string& suggestion);

  std::string lastFolder;
};

}  // namespace morvane
