#pragma once

#include <functional>
#include <memory>

#include "drawing/CRgn.h"
#include "model/Shape.h"

namespace morvane {

/// A shape whose extent is a region in device pixels. The leaf class builds it, anew whenever the
/// shape or the view's scroll position or zoom has changed.
class ComplexShape : public Shape {
 public:
  ComplexShape() = default;
  ComplexShape(std::int32_t id, ChartView* view, Layer layer) : Shape(id, view, layer) {}

  /// That of the region at normal size, so that a chart on paper is the same at every zoom.
  void GetExtent(std::int32_t& right, std::int32_t& bottom) const override;
  bool HitTest(const POINT& client) const override;
  /// A point in absolute model units is turned into device pixels and tested against the region.
  /// Such a hit ends a search and connects nothing.
  bool HitTestNear(const POINT& model) const override;
  bool IsInsideRect(const RECT& model) const override;
  void Invalidate() override;
  RECT GetBounds() const override;
  /// From now on there is a region whenever it is asked for.
  void OnPlaced() override;

  /// The trackers' callback while a part of the shape is dragged: the pointer's position in device
  /// pixels, which the operation may change.
  virtual void OnDragMove(POINT& client);

 protected:
  /// Model units into the units of a region.
  using Conversion = std::function<POINT(POINT)>;

  /// The area of what is painted, with the room for a click, in the units of the conversion.
  virtual CRgn RegionAt(const Conversion& convert) const = 0;
  /// Makes `region` afresh for the present scroll position and zoom.
  virtual void BuildRegion() = 0;
  bool IsPlaced() const { return placed; }
  /// The region, made if there is none yet and anew if the view has scrolled or zoomed since; null
  /// before `OnPlaced`.
  const CRgn* CurrentRegion() const;
  /// Holds the old region, builds the new one and asks for a repaint of both.
  void RebuildRegion();
  /// Takes the fingerprint of scroll position and zoom; call it when the region is built.
  void NoteView();

  std::unique_ptr<CRgn> region;  ///< null until somebody asks: most of a large chart never do

 private:
  bool ViewHasChanged() const;

  POINT regionScroll;  ///< scroll position of the view at the last build, model units
  std::int16_t regionZoom = 0;
  bool placed = false;
};

}  // namespace morvane
