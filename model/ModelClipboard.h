#pragma once

#include <optional>
#include <string>

namespace morvane {

/// Puts records of objects on the clipboard and takes them from there. Each failure is shown to the
/// user where it happens.
class ModelClipboard {
 public:
  /// The format that all running copies share.
  static constexpr const char* kFormat = "MORVANE_FORMAT";

  void Put(const std::string& bytes);
  /// The bytes under the format, or nothing.
  std::optional<std::string> Get();
  bool IsAvailable() const;
};

}  // namespace morvane
