#include "drawing/CMetaFileDC.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace morvane {

CMetaFileDC::CMetaFileDC(CDC& reference) : reference(reference) {}

Metafile CMetaFileDC::Close() { return std::exchange(metafile, {}); }

int CMetaFileDC::GetDeviceCaps(DeviceCap cap) const { return reference.GetDeviceCaps(cap); }

RECT CMetaFileDC::GetClipBox() const {
  constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  return {low, low, high, high};
}

Metafile::Record& CMetaFileDC::NewRecord(Metafile::Kind kind) {
  Metafile::Record& record = metafile.records.emplace_back();
  record.kind = kind;
  record.pen = GetPen();
  record.brush = GetBrush();
  record.textColor = GetTextColor();
  return record;
}

int CMetaFileDC::FontIndex(const CFont& font) {
  auto& fonts = metafile.fonts;
  const auto known = std::find(fonts.begin(), fonts.end(), font);
  if (known != fonts.end()) return static_cast<int>(known - fonts.begin());
  fonts.push_back(font);
  return static_cast<int>(fonts.size()) - 1;
}

void CMetaFileDC::Polyline(std::span<const POINT> points) {
  NewRecord(Metafile::Kind::Polyline).points.assign(points.begin(), points.end());
}

void CMetaFileDC::Polygon(std::span<const POINT> points) {
  NewRecord(Metafile::Kind::Polygon).points.assign(points.begin(), points.end());
}

void CMetaFileDC::Rectangle(const RECT& r) { NewRecord(Metafile::Kind::Rectangle).rect = r; }

void CMetaFileDC::RoundRect(const RECT& r, SIZE cornerEllipse) {
  Metafile::Record& record = NewRecord(Metafile::Kind::RoundRect);
  record.rect = r;
  record.corner = cornerEllipse;
}

void CMetaFileDC::Ellipse(const RECT& r) { NewRecord(Metafile::Kind::Ellipse).rect = r; }

void CMetaFileDC::Arc(const RECT& r, POINT start, POINT end) {
  Metafile::Record& record = NewRecord(Metafile::Kind::Arc);
  record.rect = r;
  record.points = {start, end};
}

void CMetaFileDC::FillRect(const RECT& r, const CBrush& with) {
  Metafile::Record& record = NewRecord(Metafile::Kind::FillRect);
  record.rect = r;
  record.brush = with;
}

void CMetaFileDC::FillMask(POINT topLeft, const BitMask& mask) {
  Metafile::Record& record = NewRecord(Metafile::Kind::FillMask);
  record.points = {topLeft};
  record.mask = mask;
}

void CMetaFileDC::TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) {
  const int font = FontIndex(GetFont());
  Metafile::Record& record = NewRecord(Metafile::Kind::TextOut);
  record.font = font;
  record.points = {topLeft};
  record.text = utf8;
  record.clipped = clip != nullptr;
  if (clip != nullptr) record.rect = *clip;
}

SIZE CMetaFileDC::GetTextExtent(std::string_view utf8) const {
  reference.SelectFont(GetFont());
  return reference.GetTextExtent(utf8);
}

TextMetrics CMetaFileDC::GetTextMetrics() const {
  reference.SelectFont(GetFont());
  return reference.GetTextMetrics();
}

}  // namespace morvane
