#include "dialogs/CColorComboEx.h"

#include <array>
#include <utility>

#include "connectors/LinePens.h"
#include "drawing/CDC.h"
#include "platform/Dialog.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int32_t kMargin = 2;
/// What the colours are called to who listens, in their order.
constexpr std::array kNames = {"Maroon", "Black", "White",   "Green", "Olive", "Navy",
                               "Purple", "Teal",  "Silver",  "Gray",  "Red",   "Lime",
                               "Yellow", "Blue",  "Magenta", "Cyan"};
static_assert(kNames.size() == kLineColours.size());
constexpr COLORREF kFrame = RGB(0, 0, 0);

}  // namespace

void CColorComboEx::Attach(DialogControl& combo) {
  std::vector<std::string> names;
  for (const char* name : kNames) names.push_back(Translate(name));
  combo.SetItems(std::move(names));
  combo.selection = 0;
  combo.paintItem = PaintItem;
}

void CColorComboEx::PaintItem(CDC& dc, int index, const RECT& r, bool selected) {
  const RECT inner = InflateRect(r, -kMargin);
  dc.FillSolidRect(inner, kLineColours.at(static_cast<std::size_t>(index)));
  if (selected) dc.DrawFocusRect(inner);
  dc.FrameRect(r, CBrush::Solid(kFrame));
}

}  // namespace morvane
