#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Service.h"

namespace morvane {

/// What a browser of files asks of the file system. Names and paths are the system's own bytes. The
/// default service is the real file system; what can't be read counts as empty.
class Folders {
 public:
  struct Entry {
    std::string name;
    bool folder;  ///< or a link to one
    bool hidden;
  };
  /// Gives false to end the visit.
  using Visitor = std::function<bool(const Entry& entry)>;

  virtual ~Folders() = default;
  /// The places at which paths begin: the root of the file system, then each mounted volume.
  virtual std::vector<std::string> Drives() = 0;
  /// Hands over each entry of a folder but itself and the one above it, in no order.
  virtual void Visit(const std::string& folder, const Visitor& visitor) = 0;
  /// There is such a folder, whatever the case of its name.
  virtual bool IsFolder(const std::string& path) = 0;
  static Folders& Default();

  /// The folders of a system's table of mounts (device, folder and kind in each line) at which a
  /// user finds a volume of their own, in order.
  static std::vector<std::string> VolumesOf(std::string_view mounts);
};

}  // namespace morvane
