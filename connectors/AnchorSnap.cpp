#include "connectors/AnchorSnap.h"

#include "connectors/AnchorMarker.h"
#include "drawing/CDC.h"
#include "model/AnchorOffer.h"
#include "model/ChartView.h"
#include "model/Connectable.h"

namespace morvane {

void SnapToAnchor(const AnchorOffer& offer, ChartView& view, AnchorMarker& marker, POINT& client) {
  // The marks of the right and bottom side stand further in.
  constexpr std::int32_t inward = 2;
  if (!offer) {
    client = view.ToDevice(view.ToModel(client));
    marker.Hide();
    return;
  }
  client = view.ToClient(*offer.shape->AnchorAt(offer.key));
  if (offer.key.side == SIDE_RIGHT) client.x = SubSat(client.x, inward);
  if (offer.key.side == SIDE_BOTTOM) client.y = SubSat(client.y, inward);
  marker.Show(client, view);
}

}  // namespace morvane
