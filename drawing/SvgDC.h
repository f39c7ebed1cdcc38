#pragma once

#include <string>

#include "drawing/CDC.h"

namespace morvane {

/// A context that writes a picture as SVG, one user unit to the logical unit, with text as text. Of
/// the mapping it takes the viewport origin alone. The same calls give the same bytes. Texts are
/// measured by the reference context, which has to outlive this one.
class SvgDC : public CDC {
 public:
  SvgDC(CDC& reference, SIZE size);

  /// Ends the picture and hands its text over.
  std::string Close();

  int GetDeviceCaps(DeviceCap cap) const override;
  RECT GetClipBox() const override;
  void Polyline(std::span<const POINT> points) override;
  void Polygon(std::span<const POINT> points) override;
  void Rectangle(const RECT& r) override;
  void RoundRect(const RECT& r, SIZE cornerEllipse) override;
  void Ellipse(const RECT& logical) override;
  void Arc(const RECT& logical, POINT start, POINT end) override;
  void FillRect(const RECT& r, const CBrush& with) override;
  void FillMask(POINT topLeft, const BitMask& mask) override;
  void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) override;
  SIZE GetTextExtent(std::string_view utf8) const override;
  TextMetrics GetTextMetrics() const override;

 private:
  void FlushPath();
  RECT Placed(const RECT& r) const { return r + GetViewportOrg(); }
  /// User units; a thin pen is one wide.
  std::int64_t PenWidth() const;
  std::string PixelCentre(POINT p) const;
  std::string OutlineBox(const RECT& r) const;
  std::string PaintAttributes() const;
  std::string StrokeAttributes() const;
  std::string LineAttributes() const;
  std::string FillAttribute() const;
  std::string ClipAttribute(const RECT& clip);

  CDC& reference;
  SIZE size;
  std::string body;
  std::string definitions;
  std::string path;  ///< connected lines that still grow
  CPen pathPen;
  POINT pathEnd;
  RECT lastClip;  ///< of the last text that was cut off, user units
  int clipCount = 0;
};

}  // namespace morvane
