#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <malloc.h>
#include <random>
#include <vector>

#include <QPixmapCache>

#include "fuzz/FuzzTarget.h"
#include "platform/Files.h"

using namespace morvane;

// Long use in one process: windows open, a hand does anything on them, and they close, round after
// round: soak [ROUNDS [SEED [BYTES_OF_A_ROUND]]]. In the end there may be no more memory, files and
// threads in use than after the first rounds, in which the toolkit fills its caches.

namespace {

constexpr int kRounds = 90;
constexpr std::size_t kMovesOfARound = 1000;  // bytes; a move takes about four of them
/// For each round the toolkit keeps the names of the new windows' icons in its cache; a chart that
/// stayed behind would be larger.
constexpr double kMegabytesOfARound = 0.04;

constexpr const char* kLastInput = "soak-input";

struct Usage {
  double megabytes = 0;
  std::ptrdiff_t files = 0;
  std::ptrdiff_t threads = 0;
};

std::ptrdiff_t Count(const char* folder) {
  const std::filesystem::directory_iterator entries(folder);
  return std::distance(begin(entries), end(entries));
}

Usage Measure() {
  constexpr double bytesPerMegabyte = 1024 * 1024;
  QPixmapCache::clear();  // it fills up to a limit of its own
  // Under a sanitizer this tells nothing; that looks for leaks itself.
  const struct mallinfo2 info = mallinfo2();
  return {static_cast<double>(info.uordblks + info.hblkhd) / bytesPerMegabyte,
          Count("/proc/self/fd"), Count("/proc/self/task")};
}

void Print(int round, const Usage& usage) {
  std::cout << "round " << round << ": " << usage.megabytes << " MB, " << usage.files << " files, "
            << usage.threads << " threads" << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::atoi(argv[1]) : kRounds;
  std::mt19937 random(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1U);
  const std::size_t bytes =
      argc > 3 ? static_cast<std::size_t>(std::atoi(argv[3])) : kMovesOfARound;
  Usage first;
  for (int round = 1; round <= rounds; ++round) {
    std::vector<std::uint8_t> moves(bytes);
    for (std::uint8_t& move : moves) move = static_cast<std::uint8_t>(random());
    // An input that ends the process stays for the replay.
    WriteWholeFile(kLastInput, std::string(moves.begin(), moves.end()));
    LLVMFuzzerTestOneInput(moves.data(), moves.size());
    if (round % 15 == 0) Print(round, Measure());
    if (round == rounds / 3) first = Measure();
  }
  const Usage last = Measure();
  Print(rounds, last);
  const double allowed = kMegabytesOfARound * (rounds - rounds / 3);
  Require(last.megabytes <= first.megabytes + allowed, "memory stays in use");
  Require(last.files <= first.files, "files stay open");
  Require(last.threads <= first.threads, "threads go on");
  return 0;
}
