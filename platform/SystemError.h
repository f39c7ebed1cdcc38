#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What the system says of an error of a file, in English.
struct SystemErrorWords {
  int error;
  std::string_view english;
};

/// All errors that are put into the language of the user.
std::vector<SystemErrorWords> SystemErrors();

/// What an error number of the system says, in the language of the user: that of the program, which
/// may be another one than the system's. A rare one is in the system's.
std::string SystemErrorText(int error);

/// The words for an error tell the user what to do about it, more than that it failed: such as that
/// another program has the file open, on a system that keeps two apart.
bool IsAdvice(int error);

}  // namespace morvane
