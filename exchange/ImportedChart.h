#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "exchange/ImportRemark.h"

namespace morvane {

/// A state or a final mark of a chart that is to be made.
struct ImportedState {
  static constexpr int kChart = -1;

  std::int32_t wantedId = 0;  ///< of the object; 0 for any
  bool isFinal = false;
  int holder = kChart;
  std::string title;
  std::string entry;
  std::string exit;
  bool history = false;
};

struct ImportedTransition {
  static constexpr int kNone = -1;

  std::int32_t wantedId = 0;  ///< of the object; 0 for any
  bool isInitial = false;     ///< it leaves a mark inside `source`
  int source = ImportedState::kChart;
  int target = 0;
  std::vector<std::string> events;
  std::string guard;
  std::string effect;
};

/// What a chart is made of. What comes first is tried first.
struct ImportedChart {
  std::string name;
  std::vector<ImportedState> states;  ///< outer before inner
  std::vector<ImportedTransition> transitions;
  ImportRemarks remarks;
};

}  // namespace morvane
