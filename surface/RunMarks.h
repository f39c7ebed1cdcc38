#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"

namespace morvane {

class CDC;
class LayoutMgr;
class Shape;

/// What a run of the chart shows on its objects: which states are active, which transition was
/// taken last, what was never reached, where a run stops. The model text knows nothing of it.
class RunMarks {
 public:
  enum class Look {
    Active,     ///< the innermost active state
    Around,     ///< a state that holds it
    Taken,      ///< the last transition
    Unreached,  ///< a state or a transition
    Stop        ///< a breakpoint
  };
  struct Mark {
    std::int32_t id = 0;  ///< of the object
    Look look = Look::Active;
    friend bool operator==(const Mark&, const Mark&) = default;
  };

  explicit RunMarks(LayoutMgr& view) : view(view) {}

  /// Shows these marks and no others. One whose object is not there does not show.
  void Set(std::vector<Mark> shown);
  /// Paints them over the chart in a window, on a context in client points.
  void DrawOnScreen(CDC& dc) const;
  /// Paints them over a picture of the chart, on a context in logical units; without a filling,
  /// which would hide the chart there.
  void DrawOnPicture(CDC& dc) const;

 private:
  using Place = std::function<POINT(POINT)>;
  void Draw(CDC& dc, const Place& place, bool isFilled) const;
  void DrawMark(CDC& dc, const Shape& shape, Look look, const Place& place, bool isFilled) const;

  LayoutMgr& view;
  std::vector<Mark> marks;
};

}  // namespace morvane
