#pragma once

#include "drawing/CDC.h"
#include "drawing/Metafile.h"

namespace morvane {

/// A context that records what is drawn on it. Texts are measured by the reference context that it
/// was made on, which has to outlive it.
class CMetaFileDC : public CDC {
 public:
  explicit CMetaFileDC(CDC& reference);

  /// Ends the recording and hands it over; the context is empty afterwards.
  Metafile Close();

  bool PaintsLastPoint() const override { return true; }
  int GetDeviceCaps(DeviceCap cap) const override;
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
  Metafile::Record& NewRecord(Metafile::Kind kind);
  int FontIndex(const CFont& font);

  CDC& reference;
  Metafile metafile;
};

}  // namespace morvane
