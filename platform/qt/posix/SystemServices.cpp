#include "platform/qt/SystemServices.h"

#include "platform/qt/posix/QtClipboard.h"
#include "platform/qt/posix/QtProfile.h"

namespace morvane {

std::unique_ptr<Profile> MakeUserProfile() { return std::make_unique<QtProfile>(); }

std::unique_ptr<Clipboard> MakeSystemClipboard() { return std::make_unique<QtClipboard>(); }

}  // namespace morvane
