#include <iostream>
#include <string>
#include <vector>

#include "generators/Tool.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return morvane::Tool(morvane::TargetLanguage::MORVANE_TARGET_LANGUAGE)
      .Run(arguments, std::cout, std::cerr);
}
