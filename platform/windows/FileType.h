#pragma once

#include <string>

namespace morvane {

/// A kind of file, by what the system's shell wants to know of it.
struct FileType {
  std::string extension;  ///< with its dot
  std::string id;
  std::string name;  ///< for the user

  /// Has the shell open such files with a program, for this user alone and without any rights. An
  /// extension that another program has stays with it; there this one is offered beside it. True if
  /// something has changed.
  bool Register(const std::string& program) const;
};

}  // namespace morvane
