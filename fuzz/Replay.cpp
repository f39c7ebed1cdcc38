#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "platform/Files.h"

// Runs every input of a folder once. What it finds ends the process, as it does under the fuzzer;
// what takes too long is named, and makes the run fail with the option --timed.

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLongest{1000};

std::vector<std::string> InputsIn(const std::string& folder) {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) paths.push_back(entry.path().string());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

/// The time that one input takes.
Clock::duration Run(const std::string& path) {
  std::string bytes;
  Require(ReadWholeFile(path, bytes).Ok(), "an input cannot be read");
  const Clock::time_point start = Clock::now();
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return Clock::now() - start;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const bool timed = !arguments.empty() && arguments.front() == "--timed";
  if (arguments.size() != (timed ? 2U : 1U)) {
    std::cerr << "usage: replay [--timed] FOLDER\n";
    return 2;
  }
  const std::vector<std::string> inputs = InputsIn(arguments.back());
  Require(!inputs.empty(), "the folder holds no inputs");
  int slow = 0;
  for (const std::string& path : inputs) {
    // A crash leaves this as the last line.
    std::cout << FileNameOf(path) << std::endl;
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Run(path));
    if (time <= kLongest) continue;
    std::cout << "  takes " << time.count() << " ms" << std::endl;
    ++slow;
  }
  return timed && slow > 0 ? 1 : 0;
}
