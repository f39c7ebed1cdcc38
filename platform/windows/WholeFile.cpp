#include "platform/windows/WholeFile.h"

#include <cerrno>
#include <windows.h>

#include "platform/NameBeside.h"
#include "platform/windows/WideText.h"

namespace morvane {

namespace {

using Stage = FileResult::Stage;

constexpr int kMostNames = 100;
/// Programs that look at each new file, for viruses or words, have it open for a moment.
constexpr int kMostTries = 5;
constexpr DWORD kPause = 20;

/// The folder, its file system or somebody who reads a file lets nobody put a new file in its
/// place.
bool IsRefusal(int error) {
  switch (error) {
    case EACCES:
    case EROFS:
    case EBUSY:
    case EXDEV:
    case EINVAL:
    case ENOSYS: return true;
    default: return false;
  }
}

/// Takes back what a reservation has added. With its old time the file is nobody's change.
void CutBack(WindowsFile& file, const WindowsFile::Facts& old) {
  WindowsFile::Facts now;
  if (file.Ask(now) != 0 || now.size == old.size) return;
  file.Cut(old.size);
  file.SetTime(old.time);
}

/// Gives a file new bytes. Until the first one is written the old ones come to no harm.
FileResult Fill(WindowsFile& file, std::string_view bytes, const WindowsFile::Facts& old) {
  const auto length = static_cast<std::int64_t>(bytes.size());
  if (length > old.size) {
    if (const int error = file.Reserve(length)) {
      CutBack(file, old);
      return {Stage::Reserve, error};
    }
  }
  std::size_t written = 0;
  int error = file.Write(bytes, written);
  if (error != 0 && written == 0) CutBack(file, old);
  if (error == 0) error = file.Cut(length);
  if (error == 0) error = file.Sync();
  if (error != 0) return {Stage::Transfer, error};
  return {};
}

}  // namespace

WholeFile::WholeFile(const std::string& path)
    : target(WidePath(path)), isDevice(NamesDevice(path)) {
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const bool isLink =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const std::wstring behind = isLink ? WindowsFile::FinalPath(target) : std::wstring();
  if (!behind.empty()) target = behind;
}

int WholeFile::Look(WindowsFile::Facts& old) const {
  if (isDevice) return ENXIO;
  if (const int error = WindowsFile::Ask(target, old)) return error;
  if ((old.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  return (old.attributes & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

FileResult WholeFile::Write(std::string_view bytes) const {
  int error = EEXIST;
  // Another program may make the file or take it away between the two.
  for (int i = 0; i < kMostNames && (error == EEXIST || error == ENOENT); ++i) {
    WindowsFile::Facts old;
    error = Look(old);
    const FileResult written = error == 0        ? Overwrite(bytes, old)
                               : error == ENOENT ? MakeNew(bytes)
                                                 : FileResult{Stage::Open, error};
    const bool hasChanged = written.stage == Stage::Open &&
                            (error == 0 ? written.error == ENOENT : written.error == EEXIST);
    if (!hasChanged) return written;
    error = written.error;
  }
  return {Stage::Open, error};
}

FileResult WholeFile::Overwrite(std::string_view bytes, const WindowsFile::Facts& old) const {
  WindowsFile file;
  if (const int error = file.Open(target, WindowsFile::Use::Overwrite)) {
    return {Stage::Open, error};
  }
  WindowsFile::Facts now = old;
  file.Ask(now);
  const FileResult result = Fill(file, bytes, now);
  const int closing = file.Close();
  if (result.Ok() && closing != 0) return {Stage::Transfer, closing};
  return result;
}

FileResult WholeFile::MakeNew(std::string_view bytes) const {
  WindowsFile file;
  if (const int error = file.Open(target, WindowsFile::Use::MakeNew)) return {Stage::Open, error};
  FileResult result = Fill(file, bytes, {});
  const int closing = file.Close();
  if (result.Ok() && closing != 0) result = {Stage::Transfer, closing};
  if (!result.Ok()) DeleteFileW(target.c_str());
  return result;
}

FileResult WholeFile::Replace(std::string_view bytes) const {
  WindowsFile::Facts old;
  const int error = Look(old);
  if (error != 0 && error != ENOENT) return {Stage::Open, error};
  const bool exists = error == 0;
  if (exists) {
    // Other names of the file keep their bytes in common with it.
    if (old.names > 1) return Write(bytes);
    // Whoever has it open so that nobody may write it keeps it as it is.
    WindowsFile probe;
    if (const int refusal = probe.Open(target, WindowsFile::Use::Overwrite)) {
      return {Stage::Open, refusal};
    }
  }
  const FileResult replaced = ReplaceBy(bytes, exists ? &old : nullptr);
  const bool isRefused = replaced.stage == Stage::Open && IsRefusal(replaced.error);
  return isRefused ? Write(bytes) : replaced;
}

/// The same by a new file alone. `Stage::Open` with a refusal means that it has to be done in
/// place.
FileResult WholeFile::ReplaceBy(std::string_view bytes, const WindowsFile::Facts* old) const {
  WindowsFile file;
  std::wstring beside;
  if (const int error = MakeBeside(file, beside)) {
    return {error == ENOSPC ? Stage::Reserve : Stage::Open, error};
  }
  FileResult result = Fill(file, bytes, {});
  const int closing = file.Close();
  if (result.Ok() && closing != 0) result = {Stage::Transfer, closing};
  if (result.Ok()) {
    if (const int error = PutInPlace(beside, old != nullptr)) {
      result = {IsRefusal(error) ? Stage::Open : Stage::Transfer, error};
    }
  }
  if (!result.Ok()) DeleteFileW(beside.c_str());
  // Not every file system hands them on.
  if (result.Ok() && old != nullptr && GetFileAttributesW(target.c_str()) != old->attributes) {
    SetFileAttributesW(target.c_str(), old->attributes);
  }
  return result;
}

int WholeFile::MakeBeside(WindowsFile& file, std::wstring& beside) const {
  const std::size_t separator = target.rfind(L'\\');
  const std::wstring folder =
      separator == std::wstring::npos ? std::wstring() : target.substr(0, separator + 1);
  int error = EEXIST;
  for (int i = 0; i < kMostNames && error == EEXIST; ++i) {
    beside = folder + Wide(NameBeside());
    error = file.Open(beside, WindowsFile::Use::MakeNew);
  }
  return error;
}

/// An old file hands on its attributes, its access list and its other streams, where the file
/// system knows such.
int WholeFile::PutInPlace(const std::wstring& beside, bool exists) const {
  constexpr DWORD heedless = REPLACEFILE_IGNORE_MERGE_ERRORS;
  const auto replace = [&] {
    return exists &&
           ReplaceFileW(target.c_str(), beside.c_str(), nullptr, heedless, nullptr, nullptr) != 0;
  };
  const auto move = [&] {
    return MoveFileExW(beside.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  };
  int error = EBUSY;
  for (int i = 0; i < kMostTries && error == EBUSY; ++i) {
    if (i > 0) Sleep(kPause);
    if (replace()) return 0;
    error = exists ? LastErrno() : ENOSYS;
    if (error != ENOSYS && error != EINVAL) continue;
    if (move()) return 0;
    error = LastErrno();
  }
  return error;
}

}  // namespace morvane
