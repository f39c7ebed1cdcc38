#include "fuzz/FuzzTarget.h"

#include <cstdlib>
#include <iostream>

namespace morvane {

void Require(const std::string& fault) {
  if (fault.empty()) return;
  std::cerr << "FAULT: " << fault << std::endl;
  std::abort();
}

}  // namespace morvane
