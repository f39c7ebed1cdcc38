#pragma once

#include "connectors/AnchorMarker.h"
#include "model/AnchorKey.h"
#include "model/AnchorOffer.h"
#include "model/ComplexShape.h"
#include "model/Connector.h"

namespace morvane {

class Connectable;

/// The straight connector that ties a note to what it explains. It has no direction; each end hangs
/// on an anchor of a `Connectable` or stands free.
class Line : public ComplexShape, public Connector {
 public:
  Line();
  /// A line with free ends, model units.
  Line(std::int32_t id, ChartView* view, POINT start, POINT end);
  /// A line between two anchors, which have to be there.
  Line(std::int32_t id, ChartView* view, const AnchorOffer& from, const AnchorOffer& to);
  ~Line() override;

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void Draw(CDC* dc) override;
  void DrawMarks(CDC& window) override;
  bool HitTest(const POINT& client) const override;
  RECT GetPaintBounds() const override;
  const std::string& GetTypeName() const override;
  bool RemapIds(IdMap& map) override;
  void OnCommand(unsigned command) override;
  void OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) override;
  bool GoesWith(const GroupMove& move) const override;
  bool YieldsToConnection(unsigned flags, POINT client) override;
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) override;
  void OnLayerPlaced() override;
  void OnDragMove(POINT& client) override;
  void OnBroadcast(int op, void* arg) override;

  void OnConnectableMoved(Connectable* moved) override;
  void OnConnectableGone(Connectable* gone) override;
  bool MovesAlong() const override { return Shape::MovesAlong(); }
  RECT GetMoveBounds() const override;

  /// The squares on the ends, device pixels.
  RECT GetStartHandle() const;
  RECT GetEndHandle() const;
  void InvalidateHandles();

  POINT GetStart() const { return start; }
  POINT GetEnd() const { return end; }
  Connectable* GetStartShape() const { return startShape; }
  Connectable* GetEndShape() const { return endShape; }

 protected:
  Layer GetClassLayer() const override { return LAYER_NOTE; }
  CRgn RegionAt(const Conversion& convert) const override;
  void BuildRegion() override;

 private:
  void EditProperties();
  Connectable* FindConnectable(std::int32_t shapeId) const;
  static void Follow(const Connectable& shape, const AnchorKey& key, POINT& lineEnd);
  void MoveBy(POINT offset);
  bool IsOnEnd(POINT client) const;
  void DragEnd(POINT& dragged, Connectable*& shape, AnchorKey& key, POINT press);
  void DragWhole(POINT press, unsigned flags);

  POINT start;
  POINT end;
  Connectable* startShape = nullptr;
  Connectable* endShape = nullptr;
  std::int32_t startId = 0;
  std::int32_t endId = 0;
  AnchorKey startKey;
  AnchorKey endKey;
  AnchorMarker marker;
  AnchorOffer offer;  ///< where the end in hand would be caught
  std::int32_t colourIndex = 0;
  std::int32_t styleIndex = 0;
};

}  // namespace morvane
