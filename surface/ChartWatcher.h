#pragma once

#include "drawing/Geometry.h"

namespace morvane {

class Shape;

/// Somebody for whom a chart has to stay as it is, while it is simulated for instance. As long as
/// one watches, what the mouse and the keys do to the chart comes here instead, and commands that
/// could change it are refused; what only shows it otherwise, or writes it, goes on.
class ChartWatcher {
 public:
  virtual ~ChartWatcher() = default;
  /// A double click on an object; null for one beside all objects.
  virtual void OnDoubleClick(Shape* /*shape*/) {}
  /// A context menu is asked for at a screen point, on an object or, with null, beside all.
  virtual void OnMenu(Shape* /*shape*/, POINT /*screen*/) {}
  /// Another text comes in the chart's place, as when its file is read again. The watcher lets go.
  virtual void OnReplacing() = 0;
};

}  // namespace morvane
