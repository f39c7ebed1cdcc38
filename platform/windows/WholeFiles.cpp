#include <cerrno>
#include <windows.h>

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/ThisProcess.h"
#include "platform/windows/StandardInput.h"
#include "platform/windows/WholeFile.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFile.h"

namespace morvane {

FileResult ReadWholeFile(const std::string& path, std::string& bytes) {
  bytes.clear();
  if (path == StandardInputPath()) return StandardInput::ReadAll(bytes);
  WindowsFile file;
  if (const int error = file.Open(WidePath(path), WindowsFile::Use::Read)) {
    return {FileResult::Stage::Open, error};
  }
  // A pipe or a device may have no end.
  if (!file.IsOnDisk()) return {FileResult::Stage::Open, EINVAL};
  WindowsFile::Facts facts;
  if (const int error = file.Ask(facts)) return {FileResult::Stage::Open, error};
  if ((facts.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {FileResult::Stage::Open, EISDIR};
  if (const int error = file.Read(bytes)) return {FileResult::Stage::Transfer, error};
  return {};
}

bool IsEmptyFile(const std::string& path) {
  WindowsFile::Facts facts;
  return IsFileAt(path) && WindowsFile::Ask(WidePath(path), facts) == 0 && facts.size == 0;
}

FileResult WriteWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Write(bytes);
}

FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  return WholeFile(path).Replace(bytes);
}

std::string FullPath(const std::string& path) {
  const std::string full = AbsolutePath(path);
  std::string missing;
  // What isn't there yet stays behind the folder that is.
  for (std::string there = full; !there.empty(); there = FolderOf(there)) {
    // A drive without its separator would be the folder that was used last on it.
    const bool isDrive = there.ends_with(':');
    std::wstring found = WindowsFile::FinalPath(WidePath(isDrive ? there + '\\' : there));
    if (isDrive && found.ends_with(L'\\')) found.pop_back();
    if (!found.empty()) return NarrowPath(found) + missing;
    missing.insert(0, "\\" + FileNameOf(there));
  }
  return full;
}

std::string ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return NarrowPath(path);
    }
    path.resize(2 * path.size());
  }
}

}  // namespace morvane
