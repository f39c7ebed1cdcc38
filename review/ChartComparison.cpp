#include "review/ChartComparison.h"

#include "persistence/ModelFile.h"
#include "platform/NoMessages.h"
#include "platform/UseService.h"
#include "surface/LayoutMgr.h"

namespace morvane {

ChartComparison::ChartComparison() = default;
ChartComparison::~ChartComparison() = default;

std::string ChartComparison::Take(Side side, const std::string& text) {
  Version& version = sides[side == Side::Before ? 0 : 1];
  version.text = text;
  return ChartDescription::Read(text, version.description);
}

void ChartComparison::Compare() { diff.emplace(sides[0].description, sides[1].description); }

std::string ChartComparison::Place() {
  NoMessages silence;
  const UseService<MessageBoxes> use(silence);
  for (Version& version : sides) {
    version.chart = std::make_unique<LayoutMgr>();
    if (!version.text.empty()) {
      std::string reason = ModelFile::Parse(version.text, *version.chart);
      if (!reason.empty()) return reason;
    }
    version.chart->PlaceWithoutWindow(LayoutMgr::Size::Normal);
  }
  return {};
}

}  // namespace morvane
