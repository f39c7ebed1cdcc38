#include "drawing/CRgn.h"

#include <algorithm>

namespace morvane {

namespace {

/// How often the outline winds around the centre of pixel p, by edges that run past it on the left.
int WindingNumber(const CRgn::Polygon& polygon, POINT p) {
  int winding = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const POINT a = polygon[i];
    const POINT b = polygon[(i + 1) % polygon.size()];
    const bool down = a.y <= p.y && b.y > p.y;
    const bool up = b.y <= p.y && a.y > p.y;
    if (!down && !up) continue;
    const double dy = static_cast<double>(b.y) - a.y;
    const double dx = static_cast<double>(b.x) - a.x;
    const double x = a.x + dx * (static_cast<double>(p.y) - a.y) / dy;
    if (x <= p.x) winding += down ? 1 : -1;
  }
  return winding;
}

RECT BoxOf(std::span<const POINT> points) {
  RECT box{points[0].x, points[0].y, points[0].x, points[0].y};
  for (const POINT p : points) {
    box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
           std::max(box.bottom, p.y)};
  }
  return box;
}

}  // namespace

CRgn CRgn::FromRect(const RECT& r) {
  CRgn region;
  const RECT normal = NormalizeRect(r);
  if (!IsRectEmpty(normal)) region.AddPiece(normal, normal);
  return region;
}

CRgn CRgn::FromPolygon(std::span<const POINT> points) {
  CRgn region;
  if (points.size() < 3) return region;
  const RECT box = BoxOf(points);
  if (!IsRectEmpty(box)) region.AddPiece(Polygon(points.begin(), points.end()), box);
  return region;
}

void CRgn::AddPiece(Piece piece, const RECT& pieceBox) {
  pieces.push_back(std::move(piece));
  box = UnionRect(box, pieceBox);
}

void CRgn::Add(const CRgn& other) {
  pieces.insert(pieces.end(), other.pieces.begin(), other.pieces.end());
  box = UnionRect(box, other.box);
}

bool CRgn::PtInRegion(POINT p) const {
  if (!PtInRect(box, p)) return false;
  return std::any_of(pieces.begin(), pieces.end(), [p](const Piece& piece) {
    if (const RECT* r = std::get_if<RECT>(&piece)) return PtInRect(*r, p);
    return WindingNumber(std::get<Polygon>(piece), p) != 0;
  });
}

}  // namespace morvane
