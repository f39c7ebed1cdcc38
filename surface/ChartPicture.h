#pragma once

#include "surface/Picture.h"

namespace morvane {

class LayoutMgr;

/// A chart as a picture, painted as on paper: without grid, marks and anchors, six logical units to
/// the model unit whatever zoom and scroll position the chart has on the screen. A whole chart is
/// pictured from its origin on, or with a margin around what is drawn; a selection is cut out with
/// a little room around it, and nothing else shows. The chart has to outlive the picture and stay
/// as it is meanwhile.
class ChartPicture : public Picture {
 public:
  explicit ChartPicture(LayoutMgr& chart, const PictureOptions& options = {});

  PictureInfo About() const override;
  void Paint(CDC& dc) const override;

 private:
  LayoutMgr& chart;
  bool selectionOnly;
};

}  // namespace morvane
