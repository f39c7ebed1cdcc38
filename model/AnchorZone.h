#pragma once

#include <cstdint>

#include "drawing/Geometry.h"
#include "model/AnchorOffer.h"

namespace morvane {

class ChartView;

/// Looks from a client point for the anchor that a hand means there. A shape offers its anchors in
/// a band along both sides of its border; within the bands the nearest anchor is meant.
class AnchorZone {
 public:
  /// How far on both sides of a border the band reaches at least, device pixels.
  static constexpr std::int32_t kReach = 8;
  /// What is left between the bands of a shape, so that it can be taken by its inside, if there is
  /// as much, device pixels.
  static constexpr std::int32_t kCore = 8;

  AnchorZone(const ChartView& view, POINT client) : view(view), client(client) {}

  /// The point lies in the band along the border of a rectangle, model units.
  bool Reaches(const RECT& border) const;
  /// Takes the anchors of a shape, if they are nearer than those before.
  void Consider(Connectable& shape);
  /// The nearest one of all that were considered.
  const AnchorOffer& Nearest() const { return nearest; }

 private:
  const ChartView& view;
  POINT client;
  AnchorOffer nearest;
  std::int64_t distance = 0;  ///< the square of that to the nearest anchor
};

}  // namespace morvane
