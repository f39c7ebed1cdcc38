#include "platform/FileSystem.h"

#include <windows.h>

#include "platform/Files.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFile.h"

namespace morvane {

namespace {

constexpr DWORD kNoAttributes = INVALID_FILE_ATTRIBUTES;

/// Of what is behind the links at a path; those of nothing if there is nothing.
DWORD AttributesOf(const std::string& path) {
  WindowsFile::Facts facts;
  if (NamesDevice(path) || path.empty()) return kNoAttributes;
  const std::wstring wide = WidePath(path);
  if (WindowsFile::Ask(wide, facts) == 0) return facts.attributes;
  // What another program has open for itself alone can't be opened, but is there.
  return GetFileAttributesW(wide.c_str());
}

bool IsFolder(DWORD attributes) {
  return attributes != kNoAttributes && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring Variable(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

/// Each entry of a folder but itself and the one above it, until a visitor gives false.
template <class Visit>
void ForEachIn(const std::string& folder, Visit visit) {
  // The long form for what is behind the folder, too
  const std::wstring all = WidePath(folder + (folder.empty() ? "*" : "\\*"));
  WIN32_FIND_DATAW entry;
  const HANDLE search = FindFirstFileW(all.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return;
  bool goesOn = true;
  do {
    const std::wstring_view name = entry.cFileName;
    if (name != L"." && name != L"..") goesOn = visit(entry);
  } while (goesOn && FindNextFileW(search, &entry) != 0);
  FindClose(search);
}

}  // namespace

bool IsThere(const std::string& path) { return AttributesOf(path) != kNoAttributes; }

bool IsFileAt(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != kNoAttributes && !IsFolder(attributes);
}

bool IsFolderAt(const std::string& path) { return IsFolder(AttributesOf(path)); }

bool IsProgramAt(const std::string& path) {
  DWORD kind = 0;
  return IsFileAt(path) && GetBinaryTypeW(WidePath(path).c_str(), &kind) != 0;
}

bool IsAbsolute(const std::string& path) {
  const auto isSeparator = [&path](std::size_t at) { return path[at] == '/' || path[at] == '\\'; };
  if (path.size() < 2) return false;
  if (isSeparator(0) && isSeparator(1)) return true;
  return path[1] == ':' && path.size() > 2 && isSeparator(2);
}

std::string AbsolutePath(const std::string& path) {
  const std::wstring wide = WidePath(path);
  std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  if (full.empty()) return path;
  full.resize(
      GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return NarrowPath(full);
}

void VisitFolder(const std::string& folder, const Folders::Visitor& visitor) {
  ForEachIn(folder, [&](const WIN32_FIND_DATAW& entry) {
    const DWORD attributes = entry.dwFileAttributes;
    const bool isHidden = (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    return visitor({Narrow(entry.cFileName), IsFolder(attributes), isHidden});
  });
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  ForEachIn(folder, [&](const WIN32_FIND_DATAW& entry) {
    names.push_back(Narrow(entry.cFileName));
    return true;
  });
  return names;
}

std::vector<std::string> SystemDrives() {
  std::vector<std::string> drives;
  const DWORD present = GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((present >> (letter - 'A') & 1U) != 0) drives.push_back(std::string(1, letter) + ":\\");
  }
  return drives;
}

bool MakePrivateFolder(const std::string& folder) {
  if (folder.empty()) return false;
  // The folder of the user, below which it lies, keeps others out.
  if (!IsThere(folder)) {
    MakePrivateFolder(FolderOf(folder));
    CreateDirectoryW(WidePath(folder).c_str(), nullptr);
  }
  return IsFolderAt(folder);
}

bool RemoveFile(const std::string& path) {
  return !NamesDevice(path) && DeleteFileW(WidePath(path).c_str()) != 0;
}

std::string UserStateFolder() { return Narrow(Variable(L"LOCALAPPDATA")); }

}  // namespace morvane
