#include "dialogs/PenPicker.h"

#include <array>
#include <utility>

#include "connectors/LinePens.h"
#include "drawing/CDC.h"
#include "platform/Dialog.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int32_t kMargin = 2;
/// The line keeps so far away from the left and the right edge.
constexpr std::int32_t kIndent = 10;
/// What the styles are called to who listens, in their order.
constexpr std::array kNames = {"Dotted", "Dashed", "Dash and dot", "Dash and two dots", "Solid"};
static_assert(kNames.size() == kLineStyles.size());
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(0, 0, 0);
constexpr COLORREF kFrame = RGB(0xC4, 0xC4, 0xC4);

}  // namespace

void PenPicker::Attach(DialogControl& combo) {
  std::vector<std::string> names;
  for (const char* name : kNames) names.push_back(Translate(name));
  combo.SetItems(std::move(names));
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
