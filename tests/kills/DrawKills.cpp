#include <array>
#include <atomic>
#include <chrono>
#include <iostream>
#include <random>

#include <QApplication>

#include "platform/Clipboard.h"
#include "platform/qt/QtView.h"
#include "recovery/RecoveryStore.h"
#include "shell/ChartSession.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "tests/kills/KilledChild.h"
#include "tests/kills/SharedBoard.h"
#include "tests/support/ChartTest.h"
#include "tests/ui/Events.h"

using namespace morvane;

// Kills the program while somebody draws: draw_kills KILLS [GESTURES [MILLISECONDS_OF_A_GESTURE]].
// An hour by hand is 3,600 gestures; they are drawn in the real main window, and after each kill
// the next run of the program recovers what was left behind and goes on. What is on the disk or on
// offer then has to be the chart as it was within the last second before the kill.

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kMostMissing{1};

/// What the chart was, and since when.
struct Stage {
  Clock::time_point since;
  std::size_t hash = 0;
};

/// The stages of one run, the latest at `count - 1`.
struct Journal {
  std::array<Stage, 100'000> stages;
  std::atomic<std::size_t> count = 0;
  std::atomic<int> gestures = 0;

  void Add(const std::string& text) {
    const std::size_t hash = std::hash<std::string>()(text);
    if (count != 0 && stages[count - 1].hash == hash) return;
    stages[count] = {Clock::now(), hash};
    ++count;
  }
  /// For how long before a moment the chart had not been this text any more; none if it never was.
  std::optional<Clock::duration> AgeOf(const std::string& text, Clock::time_point moment) const {
    const std::size_t hash = std::hash<std::string>()(text);
    for (std::size_t i = count; i-- > 0;) {
      if (stages[i].hash != hash) continue;
      return i + 1 == count ? Clock::duration::zero() : moment - stages[i + 1].since;
    }
    return std::nullopt;
  }
};

/// Somebody who draws in the main window, the same for the same numbers.
class Draughtsman {
 public:
  Draughtsman(const std::string& path, const std::string& folder, unsigned seed)
      : random(seed), store(folder) {
    frame.show();
    for (RecoveryOffer& offer : store.TakeOffers()) RecoverChart(frame.Manager(), offer);
    if (frame.Manager().Documents().empty()) frame.Manager().OpenDocumentFile(path);
    QApplication::processEvents();
  }

  std::string Text() { return Chart().ModelText(); }

  void DoGesture() {
    switch (Below(12)) {
      case 0:
      case 1:
      case 2:
      case 3: Place(ID_TOOL_STATE); break;
      case 4: Place(ID_TOOL_NOTE); break;
      case 5:
      case 6: Drag(); break;
      case 7: frame.RunCommand(ID_EDIT_UNDO); break;
      case 8: frame.RunCommand(ID_EDIT_REDO); break;
      case 9: Copy(); break;
      case 10: Type(); break;
      default:
        if (Below(4) == 0) frame.RunCommand(ID_FILE_SAVE);
        break;
    }
    QApplication::processEvents();
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
  QWidget& Paper() { return *frame.ActiveChild()->Window()->viewport(); }
  LayoutMgr& Chart() { return dynamic_cast<LayoutMgr&>(*frame.ActiveChild()->View()); }
  QPoint AnyPlace() { return {Below(Paper().width()), Below(Paper().height())}; }

  void Place(unsigned tool) {
    frame.RunCommand(tool);
    SendMouse(Paper(), QEvent::MouseButtonRelease, AnyPlace());
  }
  void Drag() {
    const QPoint from = AnyPlace();
    PostMouse(Paper(), QEvent::MouseMove, from + QPoint(20, 10));
    PostMouse(Paper(), QEvent::MouseButtonRelease, from + QPoint(Below(90), Below(90)));
    SendMouse(Paper(), QEvent::MouseButtonPress, from);
  }
  void Copy() {
    frame.RunCommand(ID_EDIT_COPY);
    constexpr std::size_t most = 200;
    if (Chart().GetModel().Objects().size() < most) frame.RunCommand(ID_EDIT_PASTE);
  }
  /// As with a dialog of texts.
  void Type() {
    Chart().GetProperties().Description += static_cast<char>('a' + Below(26));
    Chart().TakeSnapshot();
  }

  std::mt19937 random;
  RecoveryStore store;
  CMainFrame frame{{[this] { return std::make_unique<CMorvaneDoc>(&store); },
                    [] { return std::make_unique<LayoutMgr>(); }}};
};

/// Answers nothing, since nobody is asked.
class NoBoxes : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string& text, unsigned /*flags*/) override {
    std::cerr << text << '\n';
    return MessageAnswer::Yes;
  }
};

/// What the toolkit remarks of a screen that isn't there tells nothing of kills.
void IgnoreRemark(QtMsgType, const QMessageLogContext&, const QString&) {}

void Draw(const std::string& path, const std::string& folder, unsigned seed, int milliseconds,
          Journal& journal) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(IgnoreRemark);
  int argc = 1;
  char name[] = "draw";
  char* argv[] = {name, nullptr};
  const QApplication application(argc, argv);
  NoBoxes boxes;
  const UseService<MessageBoxes> use(boxes);
  Draughtsman hand(path, folder, seed);
  journal.Add(hand.Text());
  for (;;) {
    const auto next = Clock::now() + std::chrono::milliseconds(milliseconds);
    hand.DoGesture();
    journal.Add(hand.Text());
    ++journal.gestures;
    while (Clock::now() < next) QApplication::processEvents(QEventLoop::AllEvents, 5);
  }
}

/// What the user has after a kill: what is on offer, or else the file.
std::string WhatIsLeft(const std::string& path, const std::string& folder) {
  RecoveryStore store(folder);
  store.TakeCrashedWindows();
  const std::vector<RecoveryOffer> offers = store.TakeOffers();
  if (!offers.empty()) return offers.front().text;
  std::string text;
  ModelFile::ReadText(path, text);
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  const int kills = argc > 1 ? std::atoi(argv[1]) : 3;
  const int gestures = argc > 2 ? std::atoi(argv[2]) : kills * 18;
  const int milliseconds = argc > 3 ? std::atoi(argv[3]) : 100;
  const TempFolder temp;
  const std::string path = temp.Write("chart.mrv", ModelFile::ToDisk(SmallChart()));
  const std::string folder = temp.Path("state");
  std::mt19937 random(1);
  std::uniform_int_distribution<int> microseconds(0, 2 * gestures / kills * milliseconds * 1000);
  double worst = 0;
  double sum = 0;
  int drawn = 0;
  int lost = 0;
  for (int i = 0; i < kills; ++i) {
    const SharedBoard<Journal> journal;
    const KilledChild child([&] { Draw(path, folder, random() + i, milliseconds, *journal); });
    while (journal->count == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const bool killed = child.KillAfter(std::chrono::microseconds(microseconds(random)));
    const auto age = journal->AgeOf(WhatIsLeft(path, folder), Clock::now());
    const double missing = age ? std::chrono::duration<double>(*age).count() : -1;
    drawn += journal->gestures;
    worst = std::max(worst, missing);
    sum += std::max(missing, 0.0);
    if (killed && age && *age <= kMostMissing) continue;
    ++lost;
    std::cerr << "kill " << i << ": " << missing << " s missing of " << journal->count
              << " stages\n";
  }
  std::cout << kills << " kills in " << drawn << " gestures: missing at most " << worst
            << " s, on average " << sum / kills << " s; more than a second " << lost << " times\n";
  return lost == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
