#pragma once

#include <memory>

#include "platform/Clipboard.h"
#include "platform/Profile.h"

namespace morvane {

// The services that are different on each system, also with the toolkit.

/// The user's own settings, where programs of this system keep them.
std::unique_ptr<Profile> MakeUserProfile();
/// The clipboard that all programs share.
std::unique_ptr<Clipboard> MakeSystemClipboard();

}  // namespace morvane
