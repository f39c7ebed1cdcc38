#pragma once

#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class LayoutMgr;
class Shape;

/// How the window showed a chart before somebody began to watch it: zoom, place and selection. The
/// selection goes for the time.
class WatchedView {
 public:
  /// The chart has to outlive it.
  explicit WatchedView(LayoutMgr& chart);
  /// As it was.
  void Restore() const;

  /// Whether a command of a chart leaves it as it is.
  static bool Allows(unsigned command);

 private:
  LayoutMgr& chart;
  int zoom;
  POINT position;
  std::vector<Shape*> selected;
};

}  // namespace morvane
