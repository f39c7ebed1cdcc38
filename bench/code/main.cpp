// What generated code costs beside code written by hand, and what generating it costs.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "Pump.h"
#include "PumpMachine.h"
#include "bench/Marks.h"
#include "bench/code/MachineChart.h"
#include "bench/code/PumpByHand.h"
#include "generators/EmitterFor.h"
#include "machine/Machine.h"
#include "machine/MachineBuilder.h"

unsigned pump_steps = 0;

namespace morvane {

namespace {

constexpr std::size_t kEvents = 4096;

/// Events in no order, the same in every run.
template <class Event>
std::vector<Event> Events() {
  std::mt19937 engine(7);
  std::vector<Event> events;
  for (std::size_t i = 0; i < kEvents; ++i) events.push_back(static_cast<Event>(engine() % 7));
  return events;
}

void ByHand(benchmark::State& state) {
  const auto events = Events<PumpHandEvent>();
  PumpByHand pump{};
  pump_by_hand_start(&pump);
  for (auto _ : state) {
    for (const PumpHandEvent event : events) benchmark::DoNotOptimize(pump_by_hand(&pump, event));
  }
}

void GeneratedC(benchmark::State& state) {
  const auto events = Events<PumpEvent>();
  Pump pump;
  Pump_Init(&pump, nullptr);
  Pump_Start(&pump);
  for (auto _ : state) {
    for (const PumpEvent event : events) benchmark::DoNotOptimize(Pump_Dispatch(&pump, event));
  }
}

void GeneratedCpp(benchmark::State& state) {
  const auto events = Events<PumpMachine::Event>();
  PumpMachine pump;
  pump.Start();
  for (auto _ : state) {
    for (const PumpMachine::Event event : events) benchmark::DoNotOptimize(pump.Dispatch(event));
  }
}

/// From the text of the chart to the text of the code.
void Generate(benchmark::State& state) {
  const std::string text = MachineChart(static_cast<int>(state.range(0)));
  const auto emitter = EmitterFor(TargetLanguage::C);
  for (auto _ : state) {
    const BuiltMachine built = MachineBuilder::FromText(text);
    if (!built.machine) {
      state.SkipWithError("the chart has an error");
      break;
    }
    benchmark::DoNotOptimize(
        emitter->Emit(*built.machine, {.modelFile = "Chart.mrv", .stem = "Chart"}));
  }
}

/// What is wrong with a chart, as the designer finds it behind each change.
void Check(benchmark::State& state) {
  const std::string text = MachineChart(static_cast<int>(state.range(0)));
  double objects = 0;
  for (std::size_t at = text.find("\nBEGIN "); at != std::string::npos; ++objects) {
    at = text.find("\nBEGIN ", at + 1);
  }
  for (auto _ : state) benchmark::DoNotOptimize(MachineBuilder::FromText(text).problems);
  state.counters["objects"] = objects;
}

/// All three do the same, or the comparison means nothing.
bool Agree() {
  PumpByHand hand{};
  Pump c;
  PumpMachine cpp;
  std::array<unsigned, 3> steps{};
  const auto run = [](unsigned& sum, auto&& start, auto&& dispatch, const auto& events) {
    pump_steps = 0;
    start();
    for (const auto event : events) dispatch(event);
    sum = pump_steps;
  };
  run(
      steps[0], [&] { pump_by_hand_start(&hand); },
      [&](PumpHandEvent event) { pump_by_hand(&hand, event); }, Events<PumpHandEvent>());
  run(
      steps[1],
      [&] {
        Pump_Init(&c, nullptr);
        Pump_Start(&c);
      },
      [&](PumpEvent event) { Pump_Dispatch(&c, event); }, Events<PumpEvent>());
  run(
      steps[2], [&] { cpp.Start(); }, [&](PumpMachine::Event event) { cpp.Dispatch(event); },
      Events<PumpMachine::Event>());
  return steps[0] == steps[1] && steps[1] == steps[2];
}

}  // namespace

}  // namespace morvane

int main(int argc, char** argv) {
  using namespace morvane;
  if (!Agree()) {
    std::puts("The code written by hand does something else.");
    return 1;
  }
  const double slack = Marks::TakeSlack(argc, argv);
  benchmark::RegisterBenchmark("ByHand", ByHand)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("GeneratedC", GeneratedC)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("GeneratedCpp", GeneratedCpp)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("Generate", Generate)
      ->Arg(1000)
      ->Arg(10000)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("Check", Check)->Arg(1923)->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  Marks marks;
  benchmark::RunSpecifiedBenchmarks(&marks);
  return marks.Report(slack) ? 0 : 1;
}
