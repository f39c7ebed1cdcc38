#pragma once

#include "drawing/Geometry.h"
#include "platform/Service.h"

namespace morvane {

/// The picture of a tool that hangs from the pointer while the tool is on its way to a chart.
/// Points are screen points. The default service shows nothing.
class DragImages {
 public:
  virtual ~DragImages() = default;
  /// Shows the picture of a command with its top left corner at a point, or moves it there.
  virtual void Show(unsigned /*command*/, POINT /*topLeft*/) {}
  virtual void Hide() {}
  static DragImages& Default();
};

}  // namespace morvane
