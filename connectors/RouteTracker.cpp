#include "connectors/RouteTracker.h"

#include <utility>

#include "connectors/RoutePainter.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"

namespace morvane {

RouteTracker::RouteTracker(void* context, Callback callback, const ChartView& view, Route route)
    : PointTracker(context, callback, false), view(view), route(std::move(route)) {}

void RouteTracker::Move(POINT& point, CDC* dc) {
  PointTracker::Move(point, dc);
  const std::vector<POINT> points = route(movingPoint);
  if (points.empty()) return;
  const CPen oldPen = dc->SelectPen(DrawResources::Instance().rubberPen);
  RoutePainter(*dc, [this](POINT p) { return view.ToClient(p); }).Paint(points);
  dc->SelectPen(oldPen);
}

}  // namespace morvane
