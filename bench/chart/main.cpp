// Writes a chart of about so many objects, as the benchmarks use it, to standard output.

#include <charconv>
#include <iostream>
#include <string_view>

#include "bench/ChartGenerator.h"

int main(int argc, char** argv) {
  constexpr int most = 1'000'000;
  const std::string_view word = argc == 2 ? argv[1] : "";
  int objects = 0;
  std::from_chars(word.data(), word.data() + word.size(), objects);
  if (objects < 1 || objects > most) {
    std::cerr << "usage: morvane_bench_chart OBJECTS\n";
    return 2;
  }
  std::cout << morvane::ChartGenerator::Make(objects) << std::flush;
  return std::cout ? 0 : 1;
}
