#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace morvane {

/// A folder of a test's own, which goes with it. Its paths have slashes on every system.
class TempFolder {
 public:
  TempFolder() {
    std::random_device any;
    do {
      const std::string name = "morvane-" + std::to_string(any());
      path = (std::filesystem::temp_directory_path() / name).generic_string();
    } while (!std::filesystem::create_directory(path));
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string Path(const std::string& name) const { return (path / name).generic_string(); }
  const std::filesystem::path& Root() const { return path; }
  /// Writes a file, and gives its path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  /// The bytes of a file; empty if there is none.
  std::string Read(const std::string& name) const {
    std::ifstream in(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path path;
};

}  // namespace morvane
