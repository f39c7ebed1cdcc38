#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/Files.h"

namespace morvane {

class PosixFile;

/// A file that gets all its bytes anew. Behind a symbolic link it is the one that the link leads
/// to, also if there is none yet.
class WholeFile {
 public:
  explicit WholeFile(const std::string& path);

  /// Writes over what is there.
  FileResult Write(std::string_view bytes) const;
  /// Makes a new file beside the old one and puts it in its place.
  FileResult Replace(std::string_view bytes) const;

 private:
  int Open(PosixFile& file, bool& isNew) const;
  FileResult WriteTo(PosixFile& file, bool isNew, std::string_view bytes) const;
  void RemoveNew(const struct stat& made) const;
  FileResult ReplaceBy(std::string_view bytes, const struct stat* old) const;
  int MakeBeside(PosixFile& file, std::string& beside, mode_t mode) const;
  std::string Folder() const;
  FileResult SyncFolder() const;

  std::string target;
  int linkError = 0;  ///< why a link on the way can't be followed
};

}  // namespace morvane
