#include "resources/Version.h"

namespace morvane {

const char* const kProductVersion = MORVANE_VERSION;

}  // namespace morvane
