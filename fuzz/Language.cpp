#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "resources/TextLibrary.h"
#include "resources/Texts.h"
#include "shell/MenuTable.h"
#include "surface/LayoutMgr.h"
#include "tests/support/Charts.h"

namespace morvane {

// A language library: whatever its texts are, those that the program fills have the places for it,
// and a chart in that language stays sound.

namespace {

std::string ReasonOf(const std::string& text) {
  try {
    LoadChart(text);
  } catch (const std::string& reason) {
    return reason;
  }
  return {};
}

void LookUpEverything() {
  std::size_t letters = 0;
  for (const EnglishText& text : EnglishTexts()) letters += LoadText(text.id).size();
  for (const auto& menu : {StartMenu(), ChartMenu()}) {
    for (const MenuPopup& popup : menu) {
      for (const MenuEntry& entry : popup.entries) letters += MenuText(entry).size();
    }
  }
  Require(letters > 0, "a language without a letter");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TextLibrary library;
  if (!library.Read(TextOf(data, size))) return 0;
  TextSource::Use(&library);
  LookUpEverything();
  for (const char* text : {"", "9999 7 8", "9999 4 1\n", "9999 4 1\n6\nBEGIN DATA\nEND DATA\n"}) {
    Require(!ReasonOf(text).empty(), "a chart is refused without a reason");
  }
  LayoutMgr chart;
  chart.PlaceWithoutWindow(LayoutMgr::Size::Stored);
  Require(TextFault(chart));
  TextSource::Use(nullptr);
  return 0;
}

}  // namespace morvane
