#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"

namespace morvane {

/// A folder of a test's own, of any letters and depth, which goes with it.
class WideFolder {
 public:
  WideFolder() {
    static int folders = 0;
    std::wstring temp(MAX_PATH, L'\0');
    temp.resize(GetTempPathW(MAX_PATH, temp.data()));
    path = Narrow(temp) + "morvane \u00E4\u72B6 " + std::to_string(GetCurrentProcessId()) + "-" +
           std::to_string(++folders);
    MakePrivateFolder(path);
  }
  ~WideFolder() { Remove(path); }
  WideFolder(const WideFolder&) = delete;
  WideFolder& operator=(const WideFolder&) = delete;

  /// Of an entry; of the folder itself without a name.
  std::string Path(const std::string& name) const {
    return name.empty() ? path : path + "\\" + name;
  }

 private:
  static void Remove(const std::string& folder) {
    for (const std::string& name : NamesIn(folder)) {
      const std::string entry = folder + "\\" + name;
      SetFileAttributesW(WidePath(entry).c_str(), FILE_ATTRIBUTE_NORMAL);
      if (!RemoveFile(entry)) Remove(entry);
    }
    RemoveDirectoryW(WidePath(folder).c_str());
  }

  std::string path;
};

}  // namespace morvane
