#include <iostream>

#include "generators/Tool.h"
#include "platform/ThisProcess.h"

int main(int argc, char** argv) {
  morvane::UseBytesInStandardStreams();
  return morvane::Tool(morvane::TargetLanguage::MORVANE_TARGET_LANGUAGE)
      .Run(morvane::ProgramArguments(argc, argv), std::cout, std::cerr);
}
