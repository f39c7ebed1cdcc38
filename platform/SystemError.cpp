#include "platform/SystemError.h"

#include <algorithm>
#include <cstring>

#include "platform/Wording.h"

namespace morvane {

std::string SystemErrorText(int error) {
  const auto* known = std::ranges::find(kSystemErrors, error, &SystemErrorWords::error);
  return known != kSystemErrors.end() ? Worded(known->english) : std::strerror(error);
}

}  // namespace morvane
