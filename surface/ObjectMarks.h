#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class CDC;
class LayoutMgr;

/// Small signs that a window shows on objects of its chart, with a text for each. Paper, pictures
/// and the clipboard don't have them.
class ObjectMarks {
 public:
  struct Mark {
    std::int32_t id = 0;  ///< of the object
    bool isError = false;
    std::string text;
  };

  explicit ObjectMarks(LayoutMgr& view) : view(view) {}

  /// Shows these marks and no others. One whose object is not there does not show; several on one
  /// object are one sign.
  void Set(std::vector<Mark> shown);
  /// Objects may have moved: their marks show where they are now.
  void Follow();
  /// Paints the marks on a context in client points.
  void Draw(CDC& dc) const;
  /// The texts of the mark at a client point, one below the other; empty where there is none.
  std::string TextAt(POINT client) const;

 private:
  struct Placed {
    POINT centre;  ///< absolute model units
    bool isError = false;
    std::string text;
  };
  RECT SignOf(const Placed& mark) const;
  void Invalidate() const;

  LayoutMgr& view;
  std::vector<Mark> marks;
  std::vector<Placed> placed;
};

}  // namespace morvane
