#pragma once

#include <span>

#include "platform/SystemError.h"

namespace morvane {

/// The errors of which this system has words of its own, beside those of each system.
std::span<const SystemErrorWords> OwnSystemErrors();

}  // namespace morvane
