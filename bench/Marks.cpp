#include "bench/Marks.h"

#include <cstdio>

namespace {

struct Mark {
  const char* what;
  const char* work;
  const char* measure;
  double limit;
};

constexpr Mark kMarks[] = {
    {"read the model text, to a getline pass", "Read/10000", "GetlinePass/10000", 10},
    {"write the model text, to a getline pass", "Write/10000", "GetlinePass/10000", 6},
    {"paint a full window, to a chart of what is visible", "PaintWindow/10000",
     "PaintVisible/10000", 3},
    {"one step of a drag, to a chart of 100", "DragStep/10000", "DragStep/100", 2},
    {"a drop with its snapshot, to reading the model text", "Drop/10000", "Read/10000", 4},
    {"undo, to reading the model text", "Undo/10000", "Read/10000", 4},
    {"delete everything, to a chart of 1,000", "DeleteAll/10000", "DeleteAll/1000", 15},
};

double SecondsOf(const benchmark::BenchmarkReporter::Run& run) {
  return run.real_accumulated_time / static_cast<double>(run.iterations);
}

}  // namespace

void Marks::ReportRuns(const std::vector<Run>& runs) {
  const Run* fastest = nullptr;
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
    if (fastest == nullptr || SecondsOf(run) < SecondsOf(*fastest)) fastest = &run;
  }
  if (fastest == nullptr) return;
  best[fastest->run_name.function_name + "/" + fastest->run_name.args] = SecondsOf(*fastest);
  ConsoleReporter::ReportRuns({*fastest});
}

double Marks::Ratio(const std::string& work, const std::string& measure) const {
  const auto first = best.find(work);
  const auto second = best.find(measure);
  if (first == best.end() || second == best.end()) return 0;
  return first->second / second->second;
}

bool Marks::Report() const {
  bool allHold = true;
  std::printf("\n%-54s %8s %8s\n", "On 10,000 objects", "ratio", "mark");
  for (const Mark& mark : kMarks) {
    const double ratio = Ratio(mark.work, mark.measure);
    if (ratio == 0) continue;
    const bool holds = ratio <= mark.limit;
    allHold = allHold && holds;
    std::printf("%-54s %8.2f %8.0f%s\n", mark.what, ratio, mark.limit, holds ? "" : "  MISSED");
  }
  return allHold;
}
