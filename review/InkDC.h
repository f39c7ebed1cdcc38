#pragma once

#include <optional>

#include "drawing/CDC.h"

namespace morvane {

/// In what a shape is painted, whatever colours it has.
struct Ink {
  COLORREF colour = 0;
  int width = 0;                  ///< of lines, logical units; 0 for a device pixel
  std::optional<PenStyle> style;  ///< of lines; nothing leaves them as the shape has them
  std::optional<COLORREF> paper;  ///< fills light areas; nothing leaves them open
  bool hasText = true;
};

/// A context that passes on to another what is painted on it, in an ink. It begins with what the
/// other one has selected, and leaves that as it was.
class InkDC : public CDC {
 public:
  /// The target has to outlive it.
  explicit InkDC(CDC& target);
  ~InkDC() override;

  void SetInk(const Ink& next) { ink = next; }

  int GetDeviceCaps(DeviceCap cap) const override { return target.GetDeviceCaps(cap); }
  RECT GetClipBox() const override;
  void Polyline(std::span<const POINT> points) override;
  void Polygon(std::span<const POINT> points) override;
  void Rectangle(const RECT& r) override;
  void RoundRect(const RECT& r, SIZE cornerEllipse) override;
  void Ellipse(const RECT& r) override;
  void Arc(const RECT& r, POINT start, POINT end) override;
  void FillRect(const RECT& r, const CBrush& with) override;
  void FillMask(POINT topLeft, const BitMask& mask) override;
  void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) override;
  SIZE GetTextExtent(std::string_view utf8) const override;
  TextMetrics GetTextMetrics() const override;

 private:
  CPen Inked(CPen own) const;
  CBrush Inked(const CBrush& own) const;
  CDC& Measuring() const;
  CDC& Prepared();

  CDC& target;
  Ink ink;
  const CPen formerPen;
  const CBrush formerBrush;
  const CFont formerFont;
  const COLORREF formerColour;
  const Mapping formerMapping;
};

}  // namespace morvane
