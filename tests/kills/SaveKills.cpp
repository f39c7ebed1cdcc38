#include <atomic>
#include <cstdlib>
#include <iostream>
#include <random>

#include "bench/ChartGenerator.h"
#include "tests/kills/KilledChild.h"
#include "tests/kills/SharedBoard.h"
#include "tests/support/OpenCharts.h"

using namespace morvane;

// Kills the program in the middle of saves: save_kills KILLS [OBJECTS]. After each kill the chart's
// file has to hold the whole text of the last save that was done, or of the one that was under way,
// or that one has to be on offer in the recovery store. Prints how often which was so.

namespace {

/// How far the child has come, by the numbers of its saves.
struct Progress {
  std::atomic<int> begun = 0;
  std::atomic<int> done = 0;
};

/// The text that the save of that number writes: long and short in turn.
void Prepare(LayoutMgr& view, int save) {
  view.GetProperties().Author = std::to_string(save);
  view.GetProperties().Description = std::string(save % 2 * 5000, 'x');
}

std::string TextOf(const std::string& chart, int save) {
  const auto view = LoadChart(chart);
  Prepare(*view, save);
  return view->ModelText();
}

void SaveForEver(const std::string& path, const std::string& store, Progress& progress) {
  OpenCharts charts(store);
  CMorvaneDoc& document = charts.Open(path);
  for (int save = progress.done + 1;; ++save) {
    Prepare(OpenCharts::ViewOf(document), save);
    OpenCharts::ViewOf(document).TakeSnapshot();
    progress.begun = save;
    if (!document.DoFileSave()) return;
    progress.done = save;
  }
}

/// The number of the save whose whole text this is; -1 for any other bytes.
int SaveOf(const std::string& text) {
  LayoutMgr view;
  if (!ModelFile::Parse(text, view).empty()) return -1;
  view.PlaceWithoutWindow(LayoutMgr::Size::Stored);
  if (view.ModelText() != text) return -1;
  return std::atoi(view.GetProperties().Author.c_str());
}

struct Counts {
  int before = 0;
  int after = 0;
  int offered = 0;
  int lost = 0;
  int wrong = 0;  ///< the child ended by itself
};

void Judge(const std::string& path, const std::string& store, Progress& progress, Counts& counts) {
  std::string text;
  ModelFile::ReadText(path, text);
  const int onDisk = SaveOf(text);
  OpenCharts run(store);
  const std::vector<RecoveryOffer> offers = run.Offers();
  int offered = -1;
  for (const RecoveryOffer& offer : offers) {
    offered = std::max(offered, SaveOf(offer.text));
    offer.entry->Drop();
  }
  run.store.TakeCrashedWindows();
  if (onDisk == progress.begun && onDisk > progress.done) {
    ++counts.after;
  } else if (onDisk == progress.done) {
    ++counts.before;
  } else if (offered == progress.begun) {
    ++counts.offered;
  } else {
    ++counts.lost;
    std::cerr << "lost: begun " << progress.begun << ", done " << progress.done << ", on disk "
              << onDisk << " (" << text.size() << " bytes), offered " << offered << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int kills = argc > 1 ? std::atoi(argv[1]) : 20;
  const int objects = argc > 2 ? std::atoi(argv[2]) : 60;
  const TempFolder folder;
  const std::string chart = TextOf(ChartGenerator::Make(objects), 0);
  const std::string path = folder.Path("chart.mrv");
  const std::string store = folder.Path("state");
  std::mt19937 random(1);
  Counts counts;
  for (int i = 0; i < kills; ++i) {
    folder.Write("chart.mrv", ModelFile::ToDisk(chart));
    const SharedBoard<Progress> progress;
    const KilledChild child([&] {
      SaveForEver(path, store, *progress);
      progress->begun = -1;
    });
    while (progress->begun == 0) std::this_thread::yield();
    const auto wait = std::uniform_int_distribution<int>(0, 30'000 + objects * 20)(random);
    if (!child.KillAfter(std::chrono::microseconds(wait))) ++counts.wrong;
    Judge(path, store, *progress, counts);
  }
  std::cout << kills << " kills during saves of " << chart.size() << " bytes: old text on disk "
            << counts.before << ", new text on disk " << counts.after << ", offered "
            << counts.offered << ", lost " << counts.lost << '\n';
  return counts.lost == 0 && counts.wrong == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
