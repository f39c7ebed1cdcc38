#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Service.h"

namespace morvane {

/// The step of a clipboard operation that failed.
enum class ClipboardError { None, Open, Empty, Set, Get };

/// The system's clipboard as blocks of bytes by format name. The default service is a store of the
/// process alone.
class Clipboard {
 public:
  struct Item {
    std::string format;
    std::string bytes;
  };

  virtual ~Clipboard() = default;
  /// Empties the clipboard and puts one content in several formats on it.
  virtual ClipboardError Put(const std::vector<Item>& items) = 0;
  /// The bytes under a format; nothing, with `error` set, when they can't be had, and nothing with
  /// no error when the clipboard doesn't hold the format.
  virtual std::optional<std::string> Get(const std::string& format, ClipboardError& error) = 0;
  virtual bool IsAvailable(const std::string& format) = 0;
  static Clipboard& Default();
};

}  // namespace morvane
