#include "tests/support/TestSystem.h"

#include <sys/wait.h>

namespace morvane {

int DeathBy(int number) { return number; }

std::string FullDevice() { return "/dev/full"; }

bool HasPageReaders() { return true; }

bool HasToolkitPrintDialog() { return true; }

bool HasThaiWords() { return true; }

bool HasFontconfig() { return true; }

bool HasChildren() { return waitpid(-1, nullptr, WNOHANG) != -1; }

}  // namespace morvane
