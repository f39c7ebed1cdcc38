#include "fuzz/FuzzTarget.h"

#include <cstdlib>
#include <iostream>

void Require(const std::string& fault) {
  if (fault.empty()) return;
  std::cerr << "FAULT: " << fault << std::endl;
  std::abort();
}
