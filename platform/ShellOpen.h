#pragma once

#include <string>

#include "platform/Service.h"

namespace morvane {

enum class OpenResult { Opened, NotFound, NoProgram, Failed };

/// Opens files and web addresses with the program that the desktop has for them. The default
/// service has no desktop and finds no program.
class ShellOpen {
 public:
  virtual ~ShellOpen() = default;
  /// A path that exists, with the system's separators.
  virtual OpenResult OpenFile(const std::string& path) = 0;
  virtual OpenResult OpenWeb(const std::string& address) = 0;
  static ShellOpen& Default();
};

}  // namespace morvane
