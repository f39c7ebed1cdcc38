#pragma once

#include <functional>
#include <vector>

#include "model/PointTracker.h"

namespace morvane {

/// Shows the whole route that would come if the end in hand were let go where the pointer is.
class RouteTracker : public PointTracker {
 public:
  /// Gives the points of the route, model units, for the moving point in device pixels; none if
  /// nothing would come.
  using Route = std::function<std::vector<POINT>(POINT client)>;

  RouteTracker(void* context, Callback callback, const ChartView& view, Route route);

  void Move(POINT& point, CDC* dc) override;

 private:
  const ChartView& view;
  Route route;
};

}  // namespace morvane
