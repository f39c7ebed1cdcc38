#pragma once

#include "drawing/Geometry.h"

class CDC;

/// The highlight on the anchor under the pointer. It is drawn so that a second drawing erases it;
/// everything is in device pixels of the client area.
class AnchorMarker {
 public:
  void Show(POINT point, CDC& dc);
  void Hide(CDC& dc);
  /// What stands on the screen is gone already, after a repaint of everything.
  void Forget() { rect = {}; }
  bool IsShown() const { return rect != RECT{}; }

 private:
  static void Toggle(const RECT& r, CDC& dc);

  RECT rect;
};
