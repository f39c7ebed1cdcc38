#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "exchange/ImportedChart.h"
#include "surface/ChartArranger.h"

namespace morvane {

class GenericState;
class LayoutMgr;
class ModelMgr;

/// Makes the objects of a chart, and lays them out.
class ChartMaker {
 public:
  /// An empty chart, placed without a window. It has to outlive the maker.
  explicit ChartMaker(LayoutMgr& view);

  /// Fills the chart. What the remarks say stands in a note.
  void Make(const ImportedChart& chart, const std::string& fileName);

 private:
  std::int32_t NextId();
  std::int32_t WantedOrNext(std::int32_t wanted);
  void AddState(const ImportedState& state);
  void AddTransition(const ImportedTransition& transition);
  int AddMark(int level);
  void AddNote(const ImportRemarks& remarks, const std::string& fileName);
  void AddMessage(const ImportedTransition& transition, WantedRoute& route);

  LayoutMgr& view;
  ModelMgr& model;
  std::set<std::int32_t> taken;  ///< ids
  std::int32_t lastId = 0;
  std::vector<ChartArranger::Part> parts;  ///< the states come first
  std::vector<WantedRoute> routes;
};

}  // namespace morvane
