#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>

#include "drawing/PictureInfo.h"
#include "drawing/VectorDC.h"

namespace morvane {

/// A context that writes a picture as SVG, one user unit to the logical unit, with text as text and
/// a group for each object. The same calls give the same bytes.
class SvgDC : public VectorDC {
 public:
  /// `info` tells title and author, and the names of the objects.
  SvgDC(CDC& reference, SIZE size, PictureInfo info = {});

  /// Ends the picture and hands its text over.
  std::string Close();

  void BeginObject(std::int32_t id) override;
  void EndObject() override;
  void Polyline(std::span<const POINT> points) override;
  void Polygon(std::span<const POINT> points) override;
  void Rectangle(const RECT& r) override;
  void RoundRect(const RECT& r, SIZE cornerEllipse) override;
  void Ellipse(const RECT& r) override;
  void Arc(const RECT& r, POINT start, POINT end) override;
  void FillRect(const RECT& r, const CBrush& with) override;
  void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) override;

 private:
  void FlushPath();
  std::string Metadata() const;
  std::string PixelCentre(POINT p) const;
  std::string OutlineAttributes(const RECT& r) const;
  std::string PaintAttributes() const;
  std::string StrokeAttributes() const;
  std::string LineAttributes() const;
  std::string FillAttribute() const;
  std::string ClipAttribute(const RECT& clip);

  PictureInfo info;
  std::unordered_set<std::int32_t> ids;  ///< of the objects so far
  std::string body;
  std::string definitions;
  std::string path;  ///< connected lines that still grow
  CPen pathPen;
  POINT pathEnd;
  RECT lastClip;  ///< of the last text that was cut off, user units
  int clipCount = 0;
};

}  // namespace morvane
