#include "dialogs/CColorComboEx.h"

#include "connectors/LinePens.h"
#include "drawing/CDC.h"
#include "platform/Dialog.h"

namespace morvane {

namespace {

constexpr std::int32_t kMargin = 2;
constexpr COLORREF kFrame = RGB(0, 0, 0);

}  // namespace

void CColorComboEx::Attach(DialogControl& combo) {
  combo.itemCount = static_cast<int>(kLineColours.size());
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
