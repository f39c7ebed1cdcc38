#include "model/Connectable.h"

#include <algorithm>

#include "model/Connector.h"

namespace morvane {

Connectable::~Connectable() = default;

void Connectable::ReleaseConnectors() {
  for (Connector* connector : connectors) connector->OnConnectableGone(this);
  connectors.clear();
  anchors.clear();
}

void Connectable::RemoveConnector(Connector* connector) {
  const auto found = std::find(connectors.begin(), connectors.end(), connector);
  if (found != connectors.end()) connectors.erase(found);
}

const POINT* Connectable::AnchorAt(const AnchorKey& key) const { return anchors.Find(key); }

void Connectable::NotifyConnectors(bool all) {
  for (Connector* connector : connectors) {
    if (all || !connector->MovesAlong()) connector->OnConnectableMoved(this);
  }
}

}  // namespace morvane
