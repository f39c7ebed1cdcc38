#include "platform/ThisProcess.h"

#include <cstdlib>
#include <unistd.h>

namespace morvane {

long ProcessNumber() { return getpid(); }

std::vector<std::string> ProgramArguments(int count, const char* const* arguments) {
  return {arguments + (count > 0 ? 1 : 0), arguments + count};
}

void UseBytesInStandardStreams() {
  // They carry nothing else here.
}

std::string StandardInputPath() { return "/dev/stdin"; }

std::string SystemLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace morvane
