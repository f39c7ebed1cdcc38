#include "platform/windows/WideText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cwctype>
#include <windows.h>

namespace morvane {

namespace {

constexpr std::wstring_view kLongForm = L"\\\\?\\";
constexpr std::wstring_view kLongNetworkForm = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDeviceForm = L"\\\\.\\";
constexpr std::wstring_view kNetwork = L"\\\\";
/// The system's own limit for folders, in which a file of a short name has to find its place.
constexpr std::size_t kLongestFolder = MAX_PATH - 12;

/// One that the header doesn't know
constexpr unsigned long kDiskQuotaExceeded = 1295;

std::wstring WithBackslashes(std::wstring path) {
  std::ranges::replace(path, L'/', L'\\');
  return path;
}

/// From the drive on; empty if the system can't tell.
std::wstring Full(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  while (true) {
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    const bool fits = length < full.size();
    full.resize(length);
    if (fits) return full;
  }
}

}  // namespace

std::wstring Wide(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Narrow(std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), units,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(),
                      static_cast<int>(narrow.size()), nullptr, nullptr);
  return narrow;
}

std::wstring WidePath(const std::string& path) {
  std::wstring wide = WithBackslashes(Wide(path));
  if (wide.empty() || wide.starts_with(kLongForm) || wide.starts_with(kDeviceForm)) return wide;
  std::wstring full = Full(wide);
  if (full.size() < kLongestFolder || full.starts_with(kDeviceForm)) return wide;
  if (!full.starts_with(kNetwork)) return full.insert(0, kLongForm);
  return full.replace(0, kNetwork.size(), kLongNetworkForm);
}

std::string NarrowPath(std::wstring_view path) {
  if (path.starts_with(kLongNetworkForm)) {
    return "\\\\" + Narrow(path.substr(kLongNetworkForm.size()));
  }
  return Narrow(path.starts_with(kLongForm) ? path.substr(kLongForm.size()) : path);
}

bool NamesDevice(const std::string& path) {
  static constexpr std::array<std::wstring_view, 6> alone = {L"CON", L"PRN",    L"AUX",
                                                             L"NUL", L"CONIN$", L"CONOUT$"};
  static constexpr std::wstring_view digits = L"0123456789\u00B9\u00B2\u00B3";
  std::wstring name = WithBackslashes(Wide(path));
  if (name.starts_with(kLongForm)) return false;
  name.erase(0, name.rfind(L'\\') + 1);
  name.resize(std::min(name.find_first_of(L".:"), name.size()));
  while (name.ends_with(L' ')) name.pop_back();
  for (wchar_t& c : name) c = static_cast<wchar_t>(std::towupper(c));
  if (std::ranges::find(alone, name) != alone.end()) return true;
  const bool isPort = name.starts_with(L"COM") || name.starts_with(L"LPT");
  return isPort && name.size() == 4 && digits.find(name.back()) != std::wstring_view::npos;
}

int ErrnoOf(unsigned long error) {
  switch (error) {
    case ERROR_SUCCESS: return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_CANNOT_MAKE: return EACCES;
    case ERROR_WRITE_PROTECT: return EROFS;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT: return EBUSY;
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
    case ERROR_DISK_FULL: return ENOSPC;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return EEXIST;
    case ERROR_FILE_TOO_LARGE: return EFBIG;
    case ERROR_TOO_MANY_OPEN_FILES: return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY: return ENOMEM;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW: return ENAMETOOLONG;
    case ERROR_CANT_RESOLVE_FILENAME: return ELOOP;
    case ERROR_DIRECTORY: return ENOTDIR;
    case ERROR_NOT_SAME_DEVICE: return EXDEV;
    case ERROR_NOT_SUPPORTED:
    case ERROR_INVALID_FUNCTION:
    case ERROR_CALL_NOT_IMPLEMENTED: return ENOSYS;
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_PARAMETER: return EINVAL;
    default: return EIO;
  }
}

int LastErrno() { return ErrnoOf(GetLastError()); }

}  // namespace morvane
