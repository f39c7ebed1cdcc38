#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Service.h"

namespace morvane {

/// Tells when a file may have been changed, taken away or replaced by whoever it was. The default
/// service watches nothing.
class FileWatch {
 public:
  /// Watches as long as it lives.
  class Handle {
   public:
    virtual ~Handle() = default;
  };

  virtual ~FileWatch() = default;
  /// Calls `touched` on the thread of the windows, some time after something happened to the file.
  virtual std::unique_ptr<Handle> Start(const std::string& path, std::function<void()> touched) = 0;
  static FileWatch& Default();
};

}  // namespace morvane
