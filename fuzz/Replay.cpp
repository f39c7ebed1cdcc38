#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "platform/Files.h"

using namespace morvane;

// Runs every input of a folder once, or a number of inputs of random bytes, the same ones each
// time. What it finds ends the process, as it does under the fuzzer; what takes too long is named,
// and makes the run fail with the option --timed.

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
Clock::duration Run(const std::string& bytes) {
  const Clock::time_point start = Clock::now();
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return Clock::now() - start;
}

/// How many of the inputs in the folder take too long.
int RunFolder(const std::string& folder) {
  const std::vector<std::string> inputs = InputsIn(folder);
  Require(!inputs.empty(), "the folder holds no inputs");
  int slow = 0;
  for (const std::string& path : inputs) {
    // A crash leaves this as the last line.
    std::cout << FileNameOf(path) << std::endl;
    std::string bytes;
    Require(ReadWholeFile(path, bytes).Ok(), "an input cannot be read");
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Run(bytes));
    if (time <= kLongest) continue;
    std::cout << "  takes " << time.count() << " ms" << std::endl;
    ++slow;
  }
  return slow;
}

void RunRandom(int count) {
  constexpr std::size_t size = 1000;
  for (int seed = 1; seed <= count; ++seed) {
    std::cout << "random bytes " << seed << std::endl;
    std::mt19937 random(static_cast<unsigned>(seed));
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(random());
    Run(bytes);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
  const std::string option = arguments.size() == 2 ? arguments.front() : "";
  if (option == "--random") {
    RunRandom(std::stoi(arguments.back()));
    return 0;
  }
  if (option == "--timed") return RunFolder(arguments.back()) > 0 ? 1 : 0;
  if (arguments.size() != 1) {
    std::cerr << "usage: replay [--timed] FOLDER | replay --random COUNT\n";
    return 2;
  }
  RunFolder(arguments.back());
  return 0;
}
