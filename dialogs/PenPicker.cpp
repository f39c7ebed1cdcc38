#include "dialogs/PenPicker.h"

#include "connectors/LinePens.h"
#include "drawing/CDC.h"
#include "platform/Dialog.h"

namespace morvane {

namespace {

constexpr std::int32_t kMargin = 2;
/// The line keeps so far away from the left and the right edge.
constexpr std::int32_t kIndent = 10;
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(0, 0, 0);
constexpr COLORREF kFrame = RGB(0xC4, 0xC4, 0xC4);

}  // namespace

void PenPicker::Attach(DialogControl& combo) {
  combo.itemCount = static_cast<int>(kLineStyles.size());
  combo.selection = 0;
  combo.paintItem = PaintItem;
}

void PenPicker::PaintItem(CDC& dc, int index, const RECT& r, bool selected) {
  dc.FillSolidRect(r, kPaper);
  const BkMode oldMode = dc.SetBkMode(BkMode::Transparent);
  const CPen oldPen = dc.SelectPen({kLineStyles.at(static_cast<std::size_t>(index)), 0, kInk});
  const std::int32_t middle = Middle(r.top, r.bottom);
  dc.MoveTo({AddSat(r.left, kIndent), middle});
  dc.LineTo({SubSat(r.right, kIndent), middle});
  dc.SelectPen(oldPen);
  dc.SetBkMode(oldMode);
  if (selected) dc.DrawFocusRect(InflateRect(r, -kMargin));
  dc.FrameRect(r, CBrush::Solid(kFrame));
}

}  // namespace morvane
