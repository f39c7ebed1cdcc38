#include "platform/posix/WholeFile.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "platform/NameBeside.h"
#include "platform/posix/PosixFile.h"

namespace morvane {

namespace {

using Stage = FileResult::Stage;

constexpr mode_t kNewMode = 0666;
constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kAllModeBits = 07777;
constexpr int kMostLinks = 40;  // as the system's own limit
constexpr int kMostNames = 100;

/// The folder, its file system or the owner of a file lets nobody put a new file in its place.
bool IsRefusal(int error) {
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case EXDEV:
    case EOPNOTSUPP:
    case ENOSYS: return true;
    default: return false;
  }
}

bool IsLackOfSpace(int error) { return error == ENOSPC || error == EDQUOT; }

/// Takes back what a reservation has added. With its old time the file is nobody's change.
void CutBack(PosixFile& file, const struct stat& old) {
  struct stat status {};
  if (file.Status(status) != 0 || status.st_size == old.st_size) return;
  file.Cut(old.st_size);
  file.SetTime(old.st_mtim);
}

/// Gives an ordinary file new bytes. Until the first one is written the old ones come to no harm.
FileResult Fill(PosixFile& file, std::string_view bytes, const struct stat& old) {
  const auto length = static_cast<off_t>(bytes.size());
  if (!bytes.empty()) {
    const int error = file.Reserve(old.st_size, length);
    if (error != 0 && error != EOPNOTSUPP) {
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

/// Gives a new file the owner, so far as that is allowed, and the mode of the old one. Whoever the
/// new group brings in gets no more than everybody may.
int TakeOver(PosixFile& file, const struct stat& old) {
  constexpr auto same = static_cast<uid_t>(-1);
  const auto isForbidden = [](int error) { return IsRefusal(error) || error == EINVAL; };
  mode_t mode = old.st_mode & kAllModeBits;
  int error = file.SetOwner(old.st_uid, old.st_gid);
  if (isForbidden(error)) error = file.SetOwner(same, old.st_gid);
  if (isForbidden(error)) {
    constexpr int groupShift = 3;
    const mode_t others = mode & S_IRWXO;
    mode = (mode & ~mode_t{S_IRWXG}) | (others << groupShift);
    error = 0;
  }
  return error != 0 ? error : file.SetMode(mode);
}

}  // namespace

WholeFile::WholeFile(const std::string& path) : target(path) {
  std::array<char, PATH_MAX> link{};
  for (int i = 0; i < kMostLinks; ++i) {
    const ssize_t length = readlink(target.c_str(), link.data(), link.size());
    if (length < 0) {
      if (errno != EINVAL && errno != ENOENT) linkError = errno;
      return;
    }
    const std::string next(link.data(), static_cast<std::size_t>(length));
    target = next.starts_with('/') ? next : Folder() + next;
  }
  linkError = ELOOP;
}

/// With its separator, so that a name can be added.
std::string WholeFile::Folder() const {
  const std::size_t separator = target.rfind('/');
  return separator == std::string::npos ? "./" : target.substr(0, separator + 1);
}

int WholeFile::Open(PosixFile& file, bool& isNew) const {
  if (linkError != 0) return linkError;
  isNew = false;
  int error = EEXIST;
  // Another program may make the file or take it away between the two.
  for (int i = 0; i < kMostNames && error == EEXIST; ++i) {
    error = file.Open(target, O_WRONLY);
    if (error != ENOENT) return error;
    error = file.Open(target, O_WRONLY | O_CREAT | O_EXCL, kNewMode);
    isNew = error == 0;
  }
  return error;
}

FileResult WholeFile::Write(std::string_view bytes) const {
  PosixFile file;
  bool isNew = false;
  if (const int error = Open(file, isNew)) return {Stage::Open, error};
  return WriteTo(file, isNew, bytes);
}

FileResult WholeFile::WriteTo(PosixFile& file, bool isNew, std::string_view bytes) const {
  struct stat status {};
  if (const int error = file.Status(status)) {
    if (isNew) unlink(target.c_str());
    return {Stage::Open, error};
  }
  // Nothing keeps the superuser from opening it, but it is meant to stay.
  if (!isNew && (status.st_mode & kAnyWriteBit) == 0) return {Stage::Open, EACCES};
  FileResult result;
  if (S_ISREG(status.st_mode)) {
    result = Fill(file, bytes, status);
  } else {
    std::size_t written = 0;
    if (const int error = file.Write(bytes, written)) result = {Stage::Transfer, error};
  }
  const int closing = file.Close();
  if (result.Ok() && closing != 0) result = {Stage::Transfer, closing};
  if (result.Ok() && isNew) result = SyncFolder();
  if (!result.Ok() && isNew) RemoveNew(status);
  return result;
}

/// Takes the file away that this call has made, unless another one has come to its place.
void WholeFile::RemoveNew(const struct stat& made) const {
  struct stat there {};
  const bool isThere = lstat(target.c_str(), &there) == 0;
  if (isThere && there.st_dev == made.st_dev && there.st_ino == made.st_ino) {
    unlink(target.c_str());
  }
}

FileResult WholeFile::Replace(std::string_view bytes) const {
  if (linkError != 0) return {Stage::Open, linkError};
  struct stat old {};
  const bool exists = lstat(target.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return {Stage::Open, errno};
  if (exists) {
    // What is no ordinary file stays what it is, and other names of the file keep their bytes in
    // common with it.
    if (!S_ISREG(old.st_mode) || old.st_nlink > 1) return Write(bytes);
    if ((old.st_mode & kAnyWriteBit) == 0) return {Stage::Open, EACCES};
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return {Stage::Open, errno};
  }
  const FileResult replaced = ReplaceBy(bytes, exists ? &old : nullptr);
  const bool isRefused = replaced.stage == Stage::Open && IsRefusal(replaced.error);
  return isRefused ? Write(bytes) : replaced;
}

/// The same by a new file alone. `Stage::Open` with a refusal means that it has to be done in
/// place.
FileResult WholeFile::ReplaceBy(std::string_view bytes, const struct stat* old) const {
  PosixFile file;
  std::string beside;
  constexpr mode_t ownersOnly = 0600;  // until it has the mode of the old one
  if (const int error = MakeBeside(file, beside, old != nullptr ? ownersOnly : kNewMode)) {
    return {IsLackOfSpace(error) ? Stage::Reserve : Stage::Open, error};
  }
  FileResult result;
  if (const int error = old != nullptr ? TakeOver(file, *old) : 0) {
    result = {IsRefusal(error) ? Stage::Open : Stage::Transfer, error};
  }
  if (result.Ok()) result = Fill(file, bytes, {});
  const int closing = file.Close();
  if (result.Ok() && closing != 0) result = {Stage::Transfer, closing};
  if (result.Ok() && std::rename(beside.c_str(), target.c_str()) != 0) {
    const int error = errno;
    result = {IsRefusal(error) ? Stage::Open : Stage::Transfer, error};
  }
  if (result.Ok()) return SyncFolder();
  unlink(beside.c_str());
  return result;
}

int WholeFile::MakeBeside(PosixFile& file, std::string& beside, mode_t mode) const {
  int error = EEXIST;
  for (int i = 0; i < kMostNames && error == EEXIST; ++i) {
    beside = Folder() + NameBeside();
    error = file.Open(beside, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
  }
  return error;
}

/// The new file has its name for good once the folder is on the disk. A folder that nobody may read
/// has to do without.
FileResult WholeFile::SyncFolder() const {
  PosixFile folder;
  int error = folder.Open(Folder(), O_RDONLY | O_DIRECTORY);
  if (error == EACCES) return {};
  if (error == 0) error = folder.Sync();
  const int closing = folder.Close();
  if (error == 0) error = closing;
  if (error != 0) return {Stage::Transfer, error};
  return {};
}

}  // namespace morvane
