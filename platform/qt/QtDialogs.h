#pragma once

#include "platform/Dialogs.h"

/// The desktop's dialogs for files, colours, fonts and the printer.
class QtDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;
  std::optional<COLORREF> AskColor(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;

 private:
  std::string lastFolder;
};
