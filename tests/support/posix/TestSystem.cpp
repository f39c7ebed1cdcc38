#include "tests/support/TestSystem.h"

#include <sys/wait.h>

namespace morvane {

std::string DeathBy(int number) { return std::to_string(number); }

std::string FullDevice() { return "/dev/full"; }

bool HasPageReaders() { return true; }

bool HasToolkitPrintDialog() { return true; }

bool HasThaiWords() { return true; }

bool HasFontconfig() { return true; }

bool HasChildren() { return waitpid(-1, nullptr, WNOHANG) != -1; }

}  // namespace morvane
