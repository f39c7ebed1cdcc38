#pragma once

#include <filesystem>
#include <stdlib.h>
#include <string>

/// A folder of a test's own, which goes with it.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "morvane-XXXXXX").string();
    path = mkdtemp(pattern.data());
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string Path(const std::string& name) const { return (path / name).string(); }
  const std::filesystem::path& Root() const { return path; }

 private:
  std::filesystem::path path;
};
