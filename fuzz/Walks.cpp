#include <cstdlib>
#include <iostream>
#include <random>
#include <vector>

#include "fuzz/Walk.h"

using namespace morvane;

// Random walks over a chart, the same ones each time: walks [COUNT [BYTES_OF_A_WALK]]. Says which
// ones had a step that undo or redo did not show byte for byte, and how many had none.

namespace {

constexpr int kWalks = 1000;
constexpr std::size_t kBytes = 3000;

Walk GoOnce(int seed, std::size_t size) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::vector<std::uint8_t> bytes(size);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  ByteSource source(bytes.data(), bytes.size());
  return Walk::Go(source);
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : kWalks;
  const std::size_t size = argc > 2 ? static_cast<std::size_t>(std::atoi(argv[2])) : kBytes;
  int identical = 0;
  std::size_t steps = 0;
  for (int seed = 1; seed <= count; ++seed) {
    const Walk walk = GoOnce(seed, size);
    steps += walk.steps;
    if (walk.fault.empty()) {
      ++identical;
    } else {
      std::cout << "walk " << seed << ": " << walk.fault << std::endl;
    }
  }
  std::cout << identical << " of " << count << " walks byte-identical, " << steps << " steps"
            << std::endl;
  return identical == count && steps > 0 ? 0 : 1;
}
