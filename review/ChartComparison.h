#pragma once

#include <memory>
#include <optional>
#include <string>

#include "review/ChartDescription.h"
#include "review/ChartDiff.h"

namespace morvane {

class LayoutMgr;

/// Two model texts and what they don't share. It holds charts of its own, which no window shows and
/// nobody changes.
class ChartComparison {
 public:
  enum class Side { Before, After };

  ChartComparison();
  ~ChartComparison();
  ChartComparison(const ChartComparison&) = delete;
  ChartComparison& operator=(const ChartComparison&) = delete;

  /// Reads one of the texts, with LF between the lines; an empty one is a new chart. Gives the
  /// reason that opening it would show, empty on success.
  std::string Take(Side side, const std::string& text);
  /// Compares the two that were read.
  void Compare();
  const ChartDiff& Diff() const { return *diff; }

  /// Places both charts for a picture. Gives the reason of a failure, empty on success.
  std::string Place();
  /// The charts, once they are placed.
  const LayoutMgr& Before() const { return *sides[0].chart; }
  const LayoutMgr& After() const { return *sides[1].chart; }

 private:
  struct Version {
    std::string text;
    ChartDescription description;
    std::unique_ptr<LayoutMgr> chart;
  };

  Version sides[2];
  std::optional<ChartDiff> diff;
};

}  // namespace morvane
