#include <chrono>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <sstream>
#include <string_view>

#include <QApplication>
#include <QProcess>

#include "bench/ChartGenerator.h"
#include "bench/Marks.h"
#include "bench/OpenChart.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/RouteCrossing.h"
#include "model/AnchorKey.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/UndoHistory.h"
#include "platform/qt/QtServices.h"
#include "recovery/RecoveryStore.h"
#include "resources/CommandIds.h"
#include "shell/qt/CMainFrame.h"
#include "surface/ChartPicture.h"
#include "tests/support/TempFolder.h"

using namespace morvane;

namespace {

constexpr const char* kFirstPaint = "--first-paint";

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
    view->PlaceWithoutWindow(LayoutMgr::Size::Stored);
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
  // The first drag makes pictures and fonts, and would be taken for a short one that is slow.
  chart.DragFirstState(shortDrag);
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

/// What an edit costs the thread of the windows so that it is kept for a recovery.
void KeepUnsaved(benchmark::State& state) {
  const TempFolder folder;
  RecoveryStore store(folder.Path("state"));
  CMorvaneDoc document(&store);
  document.SetView(std::make_unique<LayoutMgr>());
  auto& view = dynamic_cast<LayoutMgr&>(*document.GetView());
  OpenChart::Read(ChartOf(state), view);
  view.PlaceWithoutWindow(LayoutMgr::Size::Stored);
  document.RememberSavedText();
  std::vector<SharedText> edits;
  // As long as the author in the file, and near its end: all of the text is compared.
  for (const char* author : {"Ann Able", "Bob Best"}) {
    view.GetProperties().Author = author;
    edits.push_back(std::make_shared<const std::string>(view.ModelText()));
  }
  std::size_t edit = 0;
  for (auto _ : state) document.OnTextChanged(edits[++edit % edits.size()]);
  document.OnCloseDocument();
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

/// A file of the kind that an extension names.
void Export(benchmark::State& state, const char* extension) {
  LayoutMgr view;
  OpenChart::Read(ChartOf(state), view);
  view.PlaceWithoutWindow(LayoutMgr::Size::Normal);
  const Picture::FileKind& kind = *Picture::KindOf(extension);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ChartPicture(view).MakeFile(kind));
  }
}

void ExportPng(benchmark::State& state) { Export(state, ".png"); }
void ExportSvg(benchmark::State& state) { Export(state, ".svg"); }
void ExportPdf(benchmark::State& state) { Export(state, ".pdf"); }
void ExportEmf(benchmark::State& state) { Export(state, ".emf"); }

/// What a user waits for when a file is opened: the chart, its picture and the object browser.
void Open(benchmark::State& state) {
  const std::string text = ChartOf(state);
  for (auto _ : state) {
    const auto start = Clock::now();
    auto chart = std::make_unique<OpenChart>(text);
    chart->PaintAll();
    chart->ShowTree();
    state.SetIterationTime(SecondsSince(start));
  }
}

double MegabytesInUse() {
  constexpr double bytesPerMegabyte = 1024 * 1024;
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / bytesPerMegabyte;
}

/// What an open chart with a full undo history takes beyond an empty one.
void Memory(benchmark::State& state) {
  constexpr int snapshots = 21;
  const std::string text = ChartOf(state);
  double more = 0;
  for (auto _ : state) {
    const OpenChart empty(ChartGenerator::Make(0));
    const double before = MegabytesInUse();
    OpenChart chart(text);
    for (int i = 0; i < snapshots; ++i) {
      chart.View().GetProperties().Author = std::to_string(i);
      chart.View().TakeSnapshot();
    }
    chart.PaintAll();
    chart.ShowTree();
    more = MegabytesInUse() - before;
  }
  state.counters["megabytes"] = more;
}

/// Starts this program anew as one that ends with its first paint.
void Start(benchmark::State& state) {
  for (auto _ : state) {
    const auto start = Clock::now();
    QProcess::execute(QApplication::applicationFilePath(), {kFirstPaint});
    state.SetIterationTime(SecondsSince(start));
  }
}

/// The main window with an empty chart, up to its first paint. The pause for the splash is left
/// out.
int PaintFirst(int& argc, char** argv) {
  const QApplication application(argc, argv);
  const QtServices services(QtServices::Use::Job);
  CMainFrame frame({[] { return std::make_unique<CMorvaneDoc>(); },
                    [] { return std::make_unique<LayoutMgr>(); }});
  frame.showMaximized();
  frame.Manager().NewDocument();
  QApplication::processEvents();
  std::_Exit(frame.grab().isNull() ? 1 : 0);
}

/// A route that never crosses itself, so that every segment is looked at.
void SearchSpiral(benchmark::State& state) {
  std::vector<RouteSegment> route;
  POINT at{0, 0};
  for (std::int32_t i = 2; i <= state.range(0); ++i) {
    const std::int32_t step = i / 2 * (i / 2 % 2 != 0 ? 2 : -2);
    const POINT to = at + (i % 2 != 0 ? POINT{0, step} : POINT{step, 0});
    route.push_back({at, to});
    at = to;
  }
  for (auto _ : state) {
    if (FindRouteCrossing(route)) state.SkipWithError("a spiral does not cross itself");
  }
}

/// One route from a state to one far away, with all states between them in its way.
void LayRoute(benchmark::State& state) {
  OpenChart chart(ChartOf(state));
  std::vector<RECT> states;
  for (const Shape* shape : chart.View().GetModel().Objects()) {
    if (shape->GetLayer() == LAYER_STATE) states.push_back(shape->GetBounds());
  }
  std::size_t pick = 0;
  for (auto _ : state) {
    constexpr std::size_t stride = 7;
    pick = (pick + stride) % states.size();
    std::vector<RECT> others = states;
    const std::vector<RECT> own{others[pick], others[(pick + others.size() / 2) % others.size()]};
    std::erase_if(others, [&](const RECT& r) { return r == own[0] || r == own[1]; });
    const RouteEnd from{{own[0].right, Middle(own[0].top, own[0].bottom)}, SIDE_RIGHT};
    const RouteEnd to{{own[1].left, Middle(own[1].top, own[1].bottom)}, SIDE_LEFT};
    benchmark::DoNotOptimize(FindOrthogonalRoute(from, to, own, others));
  }
}

constexpr int kSmall = 100;
constexpr int kMiddle = 1000;
constexpr int kLarge = 10000;
constexpr int kHuge = 50000;

/// In charts of three sizes.
benchmark::internal::Benchmark* OnCharts(benchmark::internal::Benchmark* work) {
  return work->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
}

void Register() {
  const auto add = [](const char* name, auto run) {
    return benchmark::RegisterBenchmark(name, run);
  };
  constexpr int few = 5;
  OnCharts(add("GetlinePass", GetlinePass));
  OnCharts(add("Read", Read))->UseManualTime();
  OnCharts(add("Place", Place))->UseManualTime();
  OnCharts(add("Write", Write));
  OnCharts(add("Snapshot", Snapshot));
  OnCharts(add("Undo", Undo));
  OnCharts(add("PaintWindow", PaintWindow));
  add("PaintVisible", PaintVisible)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
  OnCharts(add("HitTest", HitTest));
  OnCharts(add("DragStep", DragStep))->UseManualTime()->Iterations(few);
  OnCharts(add("Drop", Drop));
  OnCharts(add("KeepUnsaved", KeepUnsaved));
  OnCharts(add("DeleteAll", DeleteAll))->UseManualTime()->Iterations(few);
  OnCharts(add("SearchSpiral", SearchSpiral));
  add("LayRoute", LayRoute)->Arg(kMiddle)->Unit(benchmark::kMicrosecond);
  using Work = void (*)(benchmark::State&);
  for (const auto& [name, run] : {std::pair<const char*, Work>{"ExportPng", ExportPng},
                                  {"ExportSvg", ExportSvg},
                                  {"ExportPdf", ExportPdf},
                                  {"ExportEmf", ExportEmf}}) {
    add(name, run)->Arg(kMiddle)->Arg(kLarge)->UseRealTime()->Unit(benchmark::kMillisecond);
  }
  add("Memory", Memory)->Arg(kLarge)->Iterations(1);
  add("Start", Start)->UseManualTime()->Iterations(few)->Unit(benchmark::kMillisecond);
  add("Open", Open)->Arg(kHuge)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
  add("Undo", Undo)->Arg(kHuge)->Iterations(2)->Unit(benchmark::kMillisecond);
  add("Drop", Drop)->Arg(kHuge)->Iterations(2)->Unit(benchmark::kMillisecond);
  add("PaintWindow", PaintWindow)->Arg(kHuge)->Iterations(few)->Unit(benchmark::kMillisecond);
}

}  // namespace

/// Prints the times and then the marks; fails when one is missed.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc == 2 && std::string_view(argv[1]) == kFirstPaint) return PaintFirst(argc, argv);
  const double slack = Marks::TakeSlack(argc, argv);
  Register();
  benchmark::Initialize(&argc, argv);
  const QApplication application(argc, argv);
  const QtServices services(QtServices::Use::Job);
  Marks marks;
  benchmark::RunSpecifiedBenchmarks(&marks);
  return marks.Report(slack) ? 0 : 1;
}
