#include "platform/qt/SystemServices.h"

#include "platform/windows/WindowsClipboard.h"
#include "platform/windows/WindowsProfile.h"

namespace morvane {

std::unique_ptr<Profile> MakeUserProfile() { return std::make_unique<WindowsProfile>(); }

std::unique_ptr<Clipboard> MakeSystemClipboard() { return std::make_unique<WindowsClipboard>(); }

}  // namespace morvane
