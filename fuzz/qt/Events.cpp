#include <QApplication>

#include "fuzz/FuzzTarget.h"
#include "fuzz/qt/AnyHand.h"
#include "fuzz/qt/Application.h"
#include "model/Defaults.h"
#include "platform/Clipboard.h"
#include "platform/Files.h"
#include "platform/Profile.h"
#include "tests/support/Charts.h"
#include "tests/support/TempFolder.h"

namespace morvane {

// Events of mouse and keyboard, commands and answers in any order on the real windows over real
// charts: the first byte names the chart that is open at first, the others are what a hand does.

namespace {

const TempFolder& Folder() {
  static const TempFolder folder;
  return folder;
}

/// States with a message on its way between them, a note and a line.
std::string FullChart() {
  return ChartText(
      InitialRecord(7, {4, 4, 8, 8}) + StateRecord(1, {10, 10, 30, 30}, "One", "a();") +
      StateRecord(2, {60, 40, 80, 60}, "Two") + MesgRecord(4, 3, {45, 30, 55, 36}) +
      NoteRecord(5, {20, 50, 32, 56}, Block("note")) + LineRecord(6, 5, 1, "1 2 3 2") +
      TransitionRecord(3, 1, 2, "2 2 4 2",
                       "2 30 20 31 20 \n1 31 20 45 20 \n0 45 20 45 50 \n1 45 50 59 50 \n"
                       "3 59 50 60 50 \n"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  StartToolkit();
  ByteSource source(data, size);
  MemoryProfile profile;
  Profile* former = Service<Profile>::Set(&profile);
  Defaults::Instance().Load();
  Service<Clipboard>::Get().Put({});
  const std::string path = Folder().Path("chart.mrv");
  const std::string charts[] = {ChartText(""), FullChart(), SmallChart()};
  const std::string& chart = charts[source.Byte() % std::size(charts)];
  Require(WriteWholeFile(path, chart).Ok(), "the chart cannot be written");
  {
    AnyHand hand(source, path);
    hand.DoEverything();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
  Service<Profile>::Set(former);
  return 0;
}

}  // namespace morvane
