#pragma once

#include <string>

namespace morvane {

/// A name for the session in which this process runs: a user may have several with a screen of its
/// own each, and a program with an administrator's rights takes nothing from one without.
std::string UserSessionName();

}  // namespace morvane
