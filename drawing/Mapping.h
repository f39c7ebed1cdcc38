#pragma once

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"

namespace morvane {

/// The road from logical units to device pixels: a window extent, a viewport extent and a viewport
/// origin. In the mode Isotropic the viewport extent shrinks in one direction so that the scale is
/// the same in both. Every conversion rounds to the nearest whole number and saturates.
class Mapping {
 public:
  void SetMode(MapMode mode);
  void SetWindowExt(SIZE logical);
  void SetViewportExt(SIZE device);
  void SetViewportOrg(POINT device) { viewportOrg = device; }

  MapMode Mode() const { return mode; }
  SIZE WindowExt() const { return windowExt; }
  SIZE ViewportExt() const { return viewportExt; }
  POINT ViewportOrg() const { return viewportOrg; }

  /// Device pixels to the logical unit.
  double Scale() const;

  POINT ToDevice(POINT logical) const;
  RECT ToDevice(const RECT& logical) const;
  POINT ToLogical(POINT device) const;
  /// The smallest logical rectangle that covers the device rectangle.
  RECT ToLogicalCovering(const RECT& device) const;

 private:
  MapMode mode = MapMode::Text;
  SIZE windowExt{1, 1};
  SIZE viewportExt{1, 1};
  POINT viewportOrg{0, 0};
};

}  // namespace morvane
