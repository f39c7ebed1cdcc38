#pragma once

#include <array>
#include <cerrno>
#include <string>
#include <string_view>

namespace morvane {

/// What the system says of an error of a file, in English.
struct SystemErrorWords {
  int error;
  std::string_view english;
};

inline constexpr std::array kSystemErrors = {
    SystemErrorWords{EPERM, "Operation not permitted"},
    SystemErrorWords{ENOENT, "No such file or directory"},
    SystemErrorWords{EIO, "Input/output error"},
    SystemErrorWords{ENOMEM, "Cannot allocate memory"},
    SystemErrorWords{EACCES, "Permission denied"},
    SystemErrorWords{EBUSY, "Device or resource busy"},
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
    SystemErrorWords{ELOOP, "Too many levels of symbolic links"},
    SystemErrorWords{EDQUOT, "Disk quota exceeded"}};

/// What an error number of the system says, in the language of the user: that of the program, which
/// may be another one than the system's. A rare one is in the system's.
std::string SystemErrorText(int error);

}  // namespace morvane
