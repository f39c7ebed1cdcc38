#include "bench/Marks.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace morvane {

namespace {

struct Mark {
  const char* what;
  const char* work;
  const char* measure;  ///< what the time is divided by; null for a mark in seconds
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
    // n log n: ten times the objects, each at 4/3 of the cost.
    {"delete everything, to a chart of 1,000", "DeleteAll/10000", "DeleteAll/1000", 13.4},
    {"keep an edit of 10,000 objects for recovery, seconds", "KeepUnsaved/10000", nullptr, 0.001},
    {"lay a route through 1,000 objects, seconds", "LayRoute/1000", nullptr, 0.001},
    {"start to the first paint of an empty chart, seconds", "Start", nullptr, 0.4},
    {"open 50,000 objects, seconds", "Open/50000", nullptr, 3},
    {"a PNG of 1,000 objects, seconds", "ExportPng/1000", nullptr, 0.06},
    {"a PNG of 10,000 objects, seconds", "ExportPng/10000", nullptr, 0.35},
    {"a PDF of 10,000 objects, seconds", "ExportPdf/10000", nullptr, 0.12},
    {"a PNG of 10,000 objects, to 1,000", "ExportPng/10000", "ExportPng/1000", 12},
    {"an event in generated C, to a switch by hand", "GeneratedC", "ByHand", 1.5},
    {"an event in generated C++, to a switch by hand", "GeneratedCpp", "ByHand", 1.5},
    {"check 10,000 objects, seconds", "Check/1923", nullptr, 0.05},
    {"generate 1,000 states, seconds", "Generate/1000", nullptr, 0.2},
    {"generate 10,000 states, to 1,000", "Generate/10000", "Generate/1000", 13.4},
};
constexpr const char* kMemory = "Memory/10000";
constexpr double kMostMegabytes = 80;

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
  std::string name = fastest->run_name.function_name;
  if (!fastest->run_name.args.empty()) name += "/" + fastest->run_name.args;
  best[name] = SecondsOf(*fastest);
  for (const auto& [key, counter] : fastest->counters) counted[name] = counter.value;
  ConsoleReporter::ReportRuns({*fastest});
}

double Marks::TimeOf(const std::string& work) const {
  const auto found = best.find(work);
  return found != best.end() ? found->second : 0;
}

bool Marks::Report(double slack) const {
  bool allHold = true;
  const auto print = [&allHold](const char* what, double value, double limit) {
    const bool holds = value <= limit;
    allHold = allHold && holds;
    std::printf("%-54s %8.3g %8.3g%s\n", what, value, limit, holds ? "" : "  MISSED");
  };
  std::printf("\n%-54s %8s %8s\n", "On 10,000 objects", "measured", "mark");
  for (const Mark& mark : kMarks) {
    // Seconds say nothing on a machine that nobody has measured.
    if (slack != 1 && mark.measure == nullptr) continue;
    const double time = TimeOf(mark.work);
    const double unit = mark.measure != nullptr ? TimeOf(mark.measure) : 1;
    if (time > 0 && unit > 0) print(mark.what, time / unit, mark.limit * slack);
  }
  const auto memory = counted.find(kMemory);
  if (memory != counted.end()) {
    print("memory with 21 snapshots, megabytes", memory->second, kMostMegabytes);
  }
  return allHold;
}

double Marks::TakeSlack(int& argc, char** argv) {
  constexpr std::string_view option = "--slack=";
  double slack = 1;
  argc = static_cast<int>(std::remove_if(argv + 1, argv + argc,
                                         [&](std::string_view argument) {
                                           if (!argument.starts_with(option)) return false;
                                           slack = std::atof(argument.data() + option.size());
                                           return true;
                                         }) -
                          argv);
  return slack;
}

}  // namespace morvane
