#include "model/Connectable.h"

#include <algorithm>

#include "model/ChartView.h"
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

bool Connectable::FindAnchorNear(const POINT& logical, AnchorKey& out) const {
  const std::int32_t reach = GetAnchorReach();
  for (const auto& [key, point] : anchors) {
    if (!PtInRect(InflateRect(RectAt(GetView()->ToLogical(point)), reach), logical)) continue;
    out = key;
    return true;
  }
  return false;
}

const POINT* Connectable::AnchorAt(const AnchorKey& key) const { return anchors.Find(key); }

void Connectable::NotifyConnectors(bool all) {
  for (Connector* connector : connectors) {
    if (all || !connector->MovesAlong()) connector->OnConnectableMoved(this);
  }
}

}  // namespace morvane
