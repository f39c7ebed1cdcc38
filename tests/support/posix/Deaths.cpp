#include "tests/support/Deaths.h"

namespace morvane {

int DeathBy(int number) { return number; }

}  // namespace morvane
