#include "platform/SystemError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/SystemErrorWords.h"
#include "platform/Wording.h"

namespace morvane {

namespace {

constexpr std::array kOfEachSystem = {SystemErrorWords{EPERM, "Operation not permitted"},
                                      SystemErrorWords{ENOENT, "No such file or directory"},
                                      SystemErrorWords{EIO, "Input/output error"},
                                      SystemErrorWords{ENOMEM, "Cannot allocate memory"},
                                      SystemErrorWords{EACCES, "Permission denied"},
                                      SystemErrorWords{EEXIST, "File exists"},
                                      SystemErrorWords{ENOTDIR, "Not a directory"},
                                      SystemErrorWords{EISDIR, "Is a directory"},
                                      SystemErrorWords{EINVAL, "Invalid argument"},
                                      SystemErrorWords{EMFILE, "Too many open files"},
                                      SystemErrorWords{ETXTBSY, "Text file busy"},
                                      SystemErrorWords{EFBIG, "File too large"},
                                      SystemErrorWords{ENOSPC, "No space left on device"},
                                      SystemErrorWords{EROFS, "Read-only file system"},
                                      SystemErrorWords{ENAMETOOLONG, "File name too long"},
                                      SystemErrorWords{ELOOP, "Too many levels of symbolic links"}};

}  // namespace

std::vector<SystemErrorWords> SystemErrors() {
  std::vector<SystemErrorWords> all(kOfEachSystem.begin(), kOfEachSystem.end());
  const auto own = OwnSystemErrors();
  all.insert(all.end(), own.begin(), own.end());
  return all;
}

std::string SystemErrorText(int error) {
  const std::vector<SystemErrorWords> all = SystemErrors();
  const auto known = std::ranges::find(all, error, &SystemErrorWords::error);
  return known != all.end() ? Worded(known->english) : std::strerror(error);
}

}  // namespace morvane
