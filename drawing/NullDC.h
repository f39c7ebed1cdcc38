#pragma once

#include "drawing/CDC.h"

namespace morvane {

/// The context of a window that isn't there. It paints nothing and measures every letter as half
/// as wide as it is high, so that a chart can be laid out with no display.
class NullDC : public CDC {
 public:
  int GetDeviceCaps(DeviceCap cap) const override;
  RECT GetClipBox() const override { return {}; }
  void Polyline(std::span<const POINT>) override {}
  void Polygon(std::span<const POINT>) override {}
  void Rectangle(const RECT&) override {}
  void RoundRect(const RECT&, SIZE) override {}
  void Ellipse(const RECT&) override {}
  void Arc(const RECT&, POINT, POINT) override {}
  void FillRect(const RECT&, const CBrush&) override {}
  void FillMask(POINT, const BitMask&) override {}
  void TextOut(POINT, std::string_view, const RECT*) override {}
  SIZE GetTextExtent(std::string_view utf8) const override;
  TextMetrics GetTextMetrics() const override;
};

}  // namespace morvane
