#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/tools/ToolSystem.h"

// A tool for the tests of a generator run. The first argument says how it behaves.

namespace {

/// Numbered lines of ten bytes each, so that a gap shows; without end for a count of 0.
void WriteLines(std::FILE* stream, long count) {
  char line[] = "000000000\n";
  char* const last = line + sizeof(line) - 3;
  for (long i = 0; count == 0 || i < count; ++i) {
    std::fwrite(line, 1, sizeof(line) - 1, stream);
    char* digit = last;
    for (; digit > line && *digit == '9'; --digit) *digit = '0';
    ++*digit;
  }
}

}  // namespace

int main(int count, char** arguments) {
  UseBytes();
  const std::string mode = count > 1 ? arguments[1] : "";
  const long number = count > 2 ? std::strtol(arguments[2], nullptr, 10) : 0;
  if (mode == "echo") {
    for (int i = 2; i < count; ++i) std::printf("[%s]\n", arguments[i]);
    std::printf(IsInputIdle() ? "input is idle\n" : "input is ready\n");
  }
  if (mode == "lines" || mode == "both") WriteLines(stdout, number);
  if (mode == "both") WriteLines(stderr, number);
  if (mode == "exit") return static_cast<int>(number);
  if (mode == "signal") Die(number);
  if (mode == "stubborn") BeStubborn();
  if (mode == "silent") CloseStreamsAndLiveOn();
  if (mode == "helper") LiveOn();
}
