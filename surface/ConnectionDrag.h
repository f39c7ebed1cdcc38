#pragma once

#include <vector>

#include "connectors/AnchorMarker.h"
#include "model/AnchorOffer.h"
#include "model/ChartView.h"

namespace morvane {

class LayoutMgr;

/// The hand that draws connections: it marks the anchor at which a press would start one, and draws
/// it from there to where the button comes up. All points are client points.
class ConnectionDrag {
 public:
  explicit ConnectionDrag(LayoutMgr& view) : view(view) {}

  /// The pointer is at a point, with no button down: marks the anchor at which a press would start
  /// a connection.
  void ShowHover(unsigned flags, POINT client);
  void HideHover();
  /// Draws a connection from a press, if one can start there.
  ChartView::ConnectionPress Begin(unsigned flags, POINT press);

 private:
  AnchorOffer SourceAt(unsigned flags, POINT client) const;
  static void ForwardMove(POINT& client, void* drag);
  void OnMove(POINT& client);
  bool LeadsBack(POINT client) const;
  std::vector<POINT> RouteTo(POINT client) const;
  ChartView::ConnectionPress Connect(POINT drop);

  LayoutMgr& view;
  AnchorOffer source;
  AnchorOffer target;       ///< while a connection is drawn: where it would end
  AnchorMarker sourceMark;  ///< the anchor where a connection can start
  AnchorMarker targetMark;  ///< the anchor where the connection being drawn would end
};

}  // namespace morvane
