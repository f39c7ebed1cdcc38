#include "connectors/AnchorSnap.h"

#include "connectors/AnchorMarker.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Connectable.h"

namespace morvane {

bool SnapToAnchor(const Connectable* candidate, ChartView& view, AnchorMarker& marker,
                  POINT& client) {
  // The marks of the right and bottom side stand further in.
  constexpr std::int32_t inward = 2;
  AnchorKey key;
  if (candidate == nullptr || !view.FindAnchorAt(*candidate, client, key)) {
    client = view.ToDevice(view.ToModel(client));
    marker.Hide();
    return false;
  }
  client = view.ToClient(*candidate->AnchorAt(key));
  if (key.side == SIDE_RIGHT) client.x = SubSat(client.x, inward);
  if (key.side == SIDE_BOTTOM) client.y = SubSat(client.y, inward);
  marker.Show(client, view);
  return true;
}

}  // namespace morvane
