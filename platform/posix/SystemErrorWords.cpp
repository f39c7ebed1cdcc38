#include "platform/SystemErrorWords.h"

#include <array>
#include <cerrno>

namespace morvane {

std::span<const SystemErrorWords> OwnSystemErrors() {
  static constexpr std::array own = {SystemErrorWords{EBUSY, "Device or resource busy"},
                                     SystemErrorWords{EDQUOT, "Disk quota exceeded"}};
  return own;
}

bool IsAdvice(int /*error*/) { return false; }

}  // namespace morvane
