#include <cstdlib>

#include "platform/ThisProcess.h"

namespace morvane {

std::string SystemLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return DesktopLocale();
}

}  // namespace morvane
