#pragma once

#include <string>

#include "platform/Files.h"

namespace morvane {

/// What comes in on standard input, be it a file, a pipe or a console.
class StandardInput {
 public:
  /// Reads it to its end. A file is read from its beginning each time; what came through a pipe is
  /// given again.
  static FileResult ReadAll(std::string& bytes);
};

}  // namespace morvane
