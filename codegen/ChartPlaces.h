#pragma once

#include <optional>
#include <string>

#include "drawing/Geometry.h"

namespace morvane {

class LayoutMgr;
class Shape;
struct PlacedMessage;

/// The chart that a generator reads, as the messages of the tool speak of it. It holds no object:
/// the chart may change, or be closed, while the messages still stand there.
class ChartPlaces {
 public:
  /// The view has to outlive this object; its document may be closed meanwhile.
  explicit ChartPlaces(LayoutMgr& chart) : chart(chart) {}

  /// Selects the object that a message is about, scrolls to it and brings the chart forward. Gives
  /// where it stands on the screen then; nothing if it isn't there any more.
  std::optional<RECT> Show(const PlacedMessage& message) const;

 private:
  Shape* Find(const PlacedMessage& message) const;

  LayoutMgr& chart;
};

}  // namespace morvane
