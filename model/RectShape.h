#pragma once

#include <optional>

#include "model/RectTracker.h"
#include "model/Shape.h"

namespace morvane {

class SelectionMove;

/// A shape whose extent is one rectangle, in model units.
class RectShape : public Shape {
 public:
  /// The smallest width and height that a drag gives, model units.
  static constexpr std::int32_t kMinimumSize = 4;

  RectShape();
  RectShape(std::int32_t id, ChartView* view, const RECT& rect, Layer layer);
  ~RectShape() override;

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void OnBroadcast(int op, void* arg) override;
  /// The handles of a selected shape.
  void DrawMarks(CDC& window) override;
  void GetExtent(std::int32_t& right, std::int32_t& bottom) const override;
  bool HitTest(const POINT& client) const override;
  bool HitTestNear(const POINT& model) const override;
  bool IsInsideRect(const RECT& model) const override;
  void Invalidate() override;
  RECT GetBounds() const override { return rect; }
  RECT GetPaintBounds() const override;
  RECT GetMoveBounds() const override;
  void OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) override;
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) override;
  void OnPlaced() override;

  /// Called by the tracker while it drags: limits and snaps the rectangle, in device pixels.
  virtual void AdjustRect(unsigned handle, RECT& device);
  /// The handles that the tracker offers, a bit for each.
  virtual unsigned GetHandleMask() const;
  /// `rect` has a new value; `sized` is false after a move.
  virtual void OnRectChanged(const RECT& old, bool sized);
  /// Repaints the handles; they stand at the rectangle or, without `show`, nowhere.
  virtual void ShowHandles(bool show);

  /// Takes a new place, model units; not left of or above (1, 1).
  void MoveTo(const RECT& r);
  /// The place that `MoveTo` gives a rectangle.
  static RECT PlaceOnChart(const RECT& r);
  /// Takes a new rectangle, model units.
  void ResizeTo(const RECT& r);
  /// Keeps a rectangle in device pixels off the chart's left and top edge, at its size, and snaps
  /// it to whole model units.
  void SnapDeviceRect(RECT& device) const;
  /// The rectangle in device pixels of the client area.
  RECT DeviceRect() const;

 protected:
  /// The shape is selected and a client point lies on one of its handles.
  bool IsOnHandle(POINT client) const;
  void ChangeRect(const RECT& r, bool sized);
  void LimitResize(RECT& device) const;
  void ShowGhost(POINT offset);

  RECT rect;
  SelectionMove* drag = nullptr;  ///< while the shape is dragged
  /// Once the shape stands on a chart. Its rectangle follows the shape when it is asked for.
  mutable std::optional<RectTracker> tracker;
};

}  // namespace morvane
