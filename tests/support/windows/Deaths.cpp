#include "tests/support/Deaths.h"

namespace morvane {

int DeathBy(int number) {
  constexpr unsigned exception = 0xC0000000;
  return static_cast<int>(exception | static_cast<unsigned>(number));
}

}  // namespace morvane
