#include "drawing/NullDC.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr int kPixelsPerInch = 96;

std::int32_t EmHeight(const CFont& font) {
  return font.height < 0 ? SubSat(0, font.height) : font.height;
}

std::int64_t CountCodePoints(std::string_view utf8) {
  return std::count_if(utf8.begin(), utf8.end(),
                       [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
}

}  // namespace

int NullDC::GetDeviceCaps(DeviceCap cap) const {
  return cap == DeviceCap::LogPixelsX || cap == DeviceCap::LogPixelsY ? kPixelsPerInch : 0;
}

SIZE NullDC::GetTextExtent(std::string_view utf8) const {
  return {Saturate(CountCodePoints(utf8) * EmHeight(GetFont()) / 2), GetTextMetrics().height};
}

TextMetrics NullDC::GetTextMetrics() const {
  const std::int32_t em = EmHeight(GetFont());
  return {AddSat(em, em / 4), em};
}

}  // namespace morvane
