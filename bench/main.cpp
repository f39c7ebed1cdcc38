#include <chrono>
#include <memory>
#include <sstream>

#include <QApplication>

#include "bench/ChartGenerator.h"
#include "bench/Marks.h"
#include "bench/OpenChart.h"
#include "model/ModelMgr.h"
#include "persistence/ModelStream.h"
#include "persistence/UndoHistory.h"
#include "platform/qt/QtServices.h"
#include "resources/CommandIds.h"
#include "surface/ChartPicture.h"

namespace {

using Clock = std::chrono::steady_clock;

std::string ChartOf(const benchmark::State& state) {
  return ChartGenerator::Make(static_cast<int>(state.range(0)));
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void GetlinePass(benchmark::State& state) {
  const std::string text = ChartOf(state);
  for (auto _ : state) {
    std::istringstream in(text);
    std::string line;
    std::size_t length = 0;
    while (std::getline(in, line)) length += line.size();
    benchmark::DoNotOptimize(length);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Read(benchmark::State& state) {
  const std::string text = ChartOf(state);
  for (auto _ : state) {
    auto view = std::make_unique<LayoutMgr>();
    const auto start = Clock::now();
    OpenChart::Read(text, *view);
    state.SetIterationTime(SecondsSince(start));
  }
}

void Place(benchmark::State& state) {
  const std::string text = ChartOf(state);
  for (auto _ : state) {
    auto view = std::make_unique<LayoutMgr>();
    OpenChart::Read(text, *view);
    const auto start = Clock::now();
    view->GetModel().PlaceAll();
    state.SetIterationTime(SecondsSince(start));
  }
}

void Write(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  for (auto _ : state) benchmark::DoNotOptimize(chart.View().ModelText());
}

void Snapshot(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  UndoHistory history;
  for (auto _ : state) history.Push(chart.View().ModelText());
}

/// Undo and redo in turn: both read a whole snapshot and fill the object browser anew.
void Undo(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  chart.View().GetProperties().Author = "Another";
  chart.View().TakeSnapshot();
  bool undone = false;
  for (auto _ : state) {
    chart.View().OnCommand(undone ? ID_EDIT_REDO : ID_EDIT_UNDO);
    chart.ShowTree();
    undone = !undone;
  }
}

void PaintWindow(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  for (auto _ : state) chart.PaintAll();
}

void PaintVisible(benchmark::State& state) {
  OpenChart chart(
      ChartGenerator::MakeVisible(static_cast<int>(state.range(0)), OpenChart::VisibleRect()));
  for (auto _ : state) chart.PaintAll();
}

void HitTest(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  const ModelMgr& model = chart.View().GetModel();
  int x = 0;
  for (auto _ : state) {
    x = (x + 7) % OpenChart::kWindow.cx;
    benchmark::DoNotOptimize(
        model.ObjectAt({x, x * OpenChart::kWindow.cy / OpenChart::kWindow.cx}));
  }
}

/// The step alone: what a long drag takes more than a short one, by step.
void DragStep(benchmark::State& state) {
  constexpr int shortDrag = 10;
  constexpr int longDrag = 210;
  OpenChart chart(ChartOf(state));
  for (auto _ : state) {
    auto start = Clock::now();
    chart.DragFirstState(shortDrag);
    const double shortTime = SecondsSince(start);
    start = Clock::now();
    chart.DragFirstState(longDrag);
    state.SetIterationTime((SecondsSince(start) - shortTime) / (longDrag - shortDrag));
  }
}

/// A whole gesture of one step: above all the drop, with its snapshot.
void Drop(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  for (auto _ : state) chart.DragFirstState(1);
}

void DeleteAll(benchmark::State& state) {
  const std::string text = ChartOf(state);
  for (auto _ : state) {
    OpenChart chart(text);
    chart.View().GetModel().SelectAll();
    const auto start = Clock::now();
    chart.View().GetModel().DeleteSelected(false);
    chart.ShowTree();
    state.SetIterationTime(SecondsSince(start));
  }
}

void ExportPng(benchmark::State& state) {
  LayoutMgr view;
  OpenChart::Read(ChartOf(state), view);
  view.PlaceWithoutWindow(true);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ChartPicture(view).MakePng());
  }
}

constexpr int kSmall = 100;
constexpr int kMiddle = 1000;
constexpr int kLarge = 10000;

BENCHMARK(GetlinePass)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(Read)
    ->Arg(kSmall)
    ->Arg(kMiddle)
    ->Arg(kLarge)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK(Place)
    ->Arg(kSmall)
    ->Arg(kMiddle)
    ->Arg(kLarge)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
BENCHMARK(Write)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(Snapshot)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(Undo)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintWindow)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintVisible)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(HitTest)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(DragStep)
    ->Arg(kSmall)
    ->Arg(kMiddle)
    ->Arg(kLarge)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime()
    ->Iterations(5);
BENCHMARK(Drop)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(DeleteAll)
    ->Arg(kSmall)
    ->Arg(kMiddle)
    ->Arg(kLarge)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime()
    ->Iterations(5);
BENCHMARK(ExportPng)->Arg(kMiddle)->Unit(benchmark::kMillisecond);

}  // namespace

/// Prints the times and then the ratios; fails when a ratio misses its mark.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  const QApplication application(argc, argv);
  const QtServices services(QtServices::Use::Job);
  Marks marks;
  benchmark::RunSpecifiedBenchmarks(&marks);
  return marks.Report() ? 0 : 1;
}
