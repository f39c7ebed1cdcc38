#pragma once

#include "model/Connectable.h"
#include "model/RectShape.h"

namespace morvane {

/// A rectangle with anchors. Base of `State`, `Mesg` and `Note`.
class ConnectableRectShape : public RectShape, public Connectable {
 public:
  ConnectableRectShape() = default;
  ConnectableRectShape(std::int32_t id, ChartView* view, const RECT& rect, Layer layer)
      : RectShape(id, view, rect, layer) {}
  ~ConnectableRectShape() override;

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void DrawMarks(CDC& window) override;
  void Invalidate() override;
  void OnCommand(unsigned id) override;
  void OnPlaced() override;
  void OnRectChanged(const RECT& old, bool sized) override;

  /// Fills `anchors` for the present rectangle.
  virtual void RefreshAnchors() {}

  std::int32_t GetId() const override { return id; }
  bool MovesAlong() const override { return Shape::MovesAlong(); }
  ChartView* GetView() const override { return view; }

  /// Paints the anchor marks on a context in device pixels of the client area.
  void DrawAnchors(CDC& window) const;
  /// Asks for a repaint of the places where they stand and empties the map.
  void ForgetAnchors();
  bool AreAnchorsShown() const { return showAnchors; }

 protected:
  bool showAnchors = true;
};

}  // namespace morvane
