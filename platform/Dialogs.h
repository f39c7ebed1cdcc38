#pragma once

#include <optional>
#include <string>

#include "platform/Service.h"

/// The desktop's own dialogs. The default service has no screen and answers every dialog with
/// Cancel.
class Dialogs {
 public:
  struct FileFilter {
    std::string text;       ///< "Morvane Files (*.mrv)"
    std::string extension;  ///< ".mrv", given to a name that is typed without one
  };

  virtual ~Dialogs() = default;
  /// The path of a file to open; nothing on Cancel.
  virtual std::optional<std::string> AskOpenPath(const FileFilter& filter) = 0;
  /// The path to save to, starting from `suggestion`; the dialog has asked before an existing file
  /// is replaced. Nothing on Cancel.
  virtual std::optional<std::string> AskSavePath(const FileFilter& filter,
                                                 const std::string& suggestion) = 0;
  static Dialogs& Default();
};
