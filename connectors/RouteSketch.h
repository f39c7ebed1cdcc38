#pragma once

#include <vector>

#include "connectors/ChainRecord.h"
#include "connectors/LinkChain.h"

namespace morvane {

/// A route on trial: it goes where that of a transition would go if its ends were let go somewhere,
/// and changes nothing of the chart. Points are in model units.
class RouteSketch {
 public:
  /// Starts from the route of a transition.
  explicit RouteSketch(std::vector<ChainRecord> route);

  /// An end moves to a point, its stub to the side of the shape that is named.
  void MoveSource(POINT anchor, std::uint16_t side);
  void MoveTarget(POINT anchor, std::uint16_t side);
  /// Takes another route.
  void Lay(const std::vector<ChainRecord>& route) { chain.Build(route); }
  const LinkChain& Chain() const { return chain; }
  /// The source, the corners, the tip.
  std::vector<POINT> Points() const { return chain.Points(); }

 private:
  void Untangle();

  const std::vector<ChainRecord> first;  ///< to go back to
  LinkChain chain{nullptr};
};

/// The route of a transition that no state holds.
std::vector<ChainRecord> FreeRoute(POINT source, POINT target);

}  // namespace morvane
