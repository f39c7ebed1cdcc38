#pragma once

#include <cstdint>
#include <vector>

#include "drawing/Geometry.h"
#include "model/AnchorMap.h"

namespace morvane {

class Connector;
class ChartView;

/// Owns the anchors of a shape, in model units, and knows which connectors hang on them.
class Connectable {
 public:
  Connectable() = default;
  virtual ~Connectable();
  Connectable(const Connectable&) = delete;
  Connectable& operator=(const Connectable&) = delete;

  virtual std::int32_t GetId() const = 0;
  /// It is part of the move that runs.
  virtual bool MovesAlong() const = 0;
  virtual ChartView* GetView() const = 0;

  /// Appends; it doesn't test for a duplicate.
  void AddConnector(Connector* connector) { connectors.push_back(connector); }
  /// Erases the first entry that equals the argument.
  void RemoveConnector(Connector* connector);
  const std::vector<Connector*>& GetConnectors() const { return connectors; }

  /// The point of an anchor, model units; null for a key that names none, as a file can hold.
  const POINT* AnchorAt(const AnchorKey& key) const;
  const AnchorMap& GetAnchors() const { return anchors; }
  /// Tells each connector of a new place, but for selected ones after a mere move (`all` false).
  void NotifyConnectors(bool all);
  void ClearAnchors() { anchors.clear(); }

 protected:
  /// Tells each connector that this shape is gone, and forgets them.
  void ReleaseConnectors();

  std::vector<Connector*> connectors;
  AnchorMap anchors;
};

}  // namespace morvane
