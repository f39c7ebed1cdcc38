#include "connectors/AnchorMarker.h"

#include "drawing/CDC.h"
#include "model/DrawResources.h"
#include "platform/FeedbackDC.h"

namespace morvane {

namespace {
constexpr std::int32_t kReach = 6;
}

void AnchorMarker::Show(POINT point, CWnd& window) {
  if (feedback.IsShown()) return feedback.MoveTo(point);
  FeedbackDC dc(feedback, window, point);
  dc.SelectPen(DrawResources::Instance().markerPen);
  dc.SelectBrush(CBrush::Null());
  dc.Rectangle(InflateRect(RECT{}, kReach));
}

}  // namespace morvane
