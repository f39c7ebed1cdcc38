#include "tests/support/Variables.h"

#include <stdlib.h>

namespace morvane {

void SetVariable(const char* name, const char* value) {
  value != nullptr ? setenv(name, value, 1) : unsetenv(name);
}

}  // namespace morvane
