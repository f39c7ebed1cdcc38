#include "tests/support/Variables.h"

#include <stdlib.h>

namespace morvane {

void SetVariable(const char* name, const char* value) {
  _putenv_s(name, value != nullptr ? value : "");
}

}  // namespace morvane
