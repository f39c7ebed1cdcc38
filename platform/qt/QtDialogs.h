#pragma once

#include "platform/Dialogs.h"

/// The desktop's file dialogs.
class QtDialogs : public Dialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;

 private:
  std::string lastFolder;
};
