#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/windows/WindowsFile.h"

namespace morvane {

/// A file that gets all its bytes anew. Behind a symbolic link it is the one that the link leads
/// to. A name that the system takes for a device is refused.
class WholeFile {
 public:
  explicit WholeFile(const std::string& path);

  /// Writes over what is there.
  FileResult Write(std::string_view bytes) const;
  /// Makes a new file beside the old one and puts it in its place.
  FileResult Replace(std::string_view bytes) const;

 private:
  /// Why nobody may write it, 0 if somebody may; `ENOENT` if there is none.
  int Look(WindowsFile::Facts& old) const;
  FileResult Overwrite(std::string_view bytes, const WindowsFile::Facts& old) const;
  FileResult MakeNew(std::string_view bytes) const;
  FileResult ReplaceBy(std::string_view bytes, const WindowsFile::Facts* old) const;
  int MakeBeside(WindowsFile& file, std::wstring& beside) const;
  int PutInPlace(const std::wstring& beside, bool exists) const;

  std::wstring target;
  bool isDevice;
};

}  // namespace morvane
