#include "surface/ChartLook.h"

#include <algorithm>
#include <cstdint>

#include "drawing/CDC.h"
#include "model/Defaults.h"
#include "platform/Pictures.h"
#include "platform/Service.h"

namespace morvane {

void ChartLook::TakeDefaults() {
  // What no screen could show is taken as the nearest size that one can.
  constexpr std::int32_t smallest = 10;
  constexpr std::int32_t greatest = 5000;
  constexpr std::int32_t tenthsPerPoint = 10;
  const Defaults& settings = Defaults::Instance();
  const std::int32_t size = std::clamp(settings.FontSize, smallest, greatest);
  font = CFont::FromTenthsOfPoint(size, settings.FontName);
  boldFont = CFont::FromTenthsOfPoint(size / tenthsPerPoint * tenthsPerPoint, settings.FontName);
  boldFont.weight = CFont::kBoldWeight;
  textColour = settings.FontColor;
}

void ChartLook::DrawText(CDC& dc, std::string_view text, const RECT& area) const {
  const BkMode oldMode = dc.SetBkMode(BkMode::Transparent);
  const COLORREF oldColour = dc.SetTextColor(textColour);
  const CFont oldFont = dc.SelectFont(font);
  RECT room = area;
  dc.DrawText(text, room, DT_WORDBREAK);
  dc.SelectFont(oldFont);
  dc.SetTextColor(oldColour);
  dc.SetBkMode(oldMode);
}

SIZE ChartLook::Measure(std::string_view text, std::int32_t width, const CFont& letters) {
  const std::unique_ptr<CDC> dc = Service<Pictures>::Get().ReferenceDC();
  dc->SelectFont(letters);
  RECT room{0, 0, width, 0};
  dc->DrawText(text, room, DT_WORDBREAK | DT_CALCRECT);
  return {Saturate(Width(room)), Saturate(Height(room))};
}

}  // namespace morvane
