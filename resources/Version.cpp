#include "resources/Version.h"

const char* const kProductVersion = MORVANE_VERSION;
