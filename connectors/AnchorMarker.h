#pragma once

#include "platform/Feedback.h"

namespace morvane {

/// The highlight on the anchor under the pointer, at a point in device pixels of the client area.
class AnchorMarker {
 public:
  void Show(POINT point, CWnd& window);
  void Hide() { feedback.Hide(); }

 private:
  Feedback feedback;
};

}  // namespace morvane
