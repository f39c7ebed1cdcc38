#pragma once

#include <span>
#include <variant>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// A region of device pixels: the union of rectangles and of polygons with winding fill. As with a
/// rectangle, a pixel on a left or top edge is inside and one on a right or bottom edge outside.
class CRgn {
 public:
  using Polygon = std::vector<POINT>;
  using Piece = std::variant<RECT, Polygon>;

  CRgn() = default;
  static CRgn FromRect(const RECT& r);
  static CRgn FromPolygon(std::span<const POINT> points);

  /// Adds all of the other region.
  void Add(const CRgn& other);
  bool PtInRegion(POINT p) const;
  /// The smallest rectangle around all pieces; all zeros for an empty region.
  RECT GetBox() const { return box; }
  bool IsEmpty() const { return pieces.empty(); }
  const std::vector<Piece>& Pieces() const { return pieces; }

 private:
  void AddPiece(Piece piece, const RECT& pieceBox);

  std::vector<Piece> pieces;
  RECT box;
};

}  // namespace morvane
