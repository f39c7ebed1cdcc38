#include "tests/support/TestSystem.h"

namespace morvane {

int DeathBy(int number) { return number; }

std::string FullDevice() { return "/dev/full"; }

bool HasPageReaders() { return true; }

}  // namespace morvane
