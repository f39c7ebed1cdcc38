#include "platform/ThisProcess.h"

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

std::string DesktopLocale() { return {}; }

}  // namespace morvane
