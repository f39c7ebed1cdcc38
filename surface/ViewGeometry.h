#pragma once

#include "drawing/Geometry.h"
#include "platform/Message.h"

namespace morvane {

class CDC;
class ChartView;

/// How a chart lies in its view: the sizes and steps of the scroll bars, the mapping that follows
/// the zoom, and the grid. The zoom itself is the view's, which converts by it.
class ViewGeometry {
 public:
  /// Every so many model units the grid has a line.
  static constexpr std::int32_t kGridStep = 3;

  explicit ViewGeometry(ChartView& view);

  bool IsGridShown() const { return showGrid; }
  /// At the first showing of a chart: its grid as the defaults have it, and its whole surface at
  /// normal size, whatever the zoom, until that changes.
  void Begin();
  /// Lets the surface reach beyond the lower right corner of the objects, model units. It doesn't
  /// shrink before the next zoom.
  void MakeRoom(POINT corner);
  /// Sets sizes and position of the scroll bars for a new zoom of the view. What lay at a client
  /// point before still lies there, as near as the edges of the surface and its steps allow.
  void ApplyZoom(int oldZoom, POINT client);
  /// The zoom, from 1 up to the greatest, at which a rectangle in absolute model units just fills
  /// the window.
  int ZoomToFit(const RECT& model) const;
  /// Scrolls so that a rectangle in absolute model units lies in the middle of the window.
  void ScrollToMiddle(const RECT& model);
  POINT MiddleOfWindow() const;
  /// A uniform scale from logical units to device pixels; the origin stays.
  void PrepareMapping(CDC& dc) const;
  /// Draws the grid, if there is one, on a context that is still in device pixels.
  void DrawGrid(CDC& dc) const;
  /// Scrolls so far that a rectangle in absolute model units shows, if it doesn't. It then stands
  /// nearer to the beginning of the window than to its end, where a dialog may lie.
  void ScrollIntoView(const RECT& model);
  /// Scrolls no farther than it takes to show a rectangle in absolute model units, or as much of it
  /// as has room; one that has no room stays where a part of it shows.
  void KeepInSight(const RECT& model);
  /// What of the surface shows, absolute model units.
  RECT InSight() const;
  /// Scrolls as a key says; false for a key that says nothing of it.
  bool ScrollByKey(VirtualKey key);

 private:
  /// What a zoom kept in place. Steps around the same point don't add up what each has rounded.
  struct Kept {
    POINT client;
    double x = 0;  ///< model units
    double y = 0;
    POINT scrolledTo;
    int zoom = 0;
  };
  void SetSurface();
  SIZE SurfaceInPixels() const;

  ChartView& view;
  SIZE surface;  ///< model units
  Kept kept;
  bool showGrid = true;
};

}  // namespace morvane
