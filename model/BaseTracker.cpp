#include "model/BaseTracker.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"
#include "platform/DragThreshold.h"
#include "platform/Feedback.h"
#include "platform/FeedbackDC.h"
#include "platform/ModalLoop.h"

namespace morvane {

bool BaseTracker::Track(ChartView* view, POINT press) {
  if (view->HasCapture()) return false;
  const ModalLoop loop;
  Feedback feedback;
  DragThreshold threshold(*view, press);
  view->SetCapture();
  view->UpdateWindow();
  for (bool tracking = true; tracking;) {
    Message message = view->NextMessage();
    // The mouse may have gone to something else.
    const bool lost = message.kind == Message::Kind::Quit || !view->HasCapture();
    const bool escape = message.kind == Message::Kind::KeyDown && message.key == VirtualKey::Escape;
    const bool released = message.kind == Message::Kind::LButtonUp;
    click = released && !lost && !threshold.IsPassed();
    if (lost || escape || click) {
      tracking = false;
    } else if (message.kind == Message::Kind::MouseMove) {
      if (!threshold.Passes(message.point)) continue;
      if (callback != nullptr) callback(message.point, context);
      FeedbackDC layer(feedback, *view);
      Move(message.point, &layer);
    } else if (released) {
      view->ReleaseCapture();
      FeedbackDC layer(feedback, *view);
      return Finish(message.point, &layer);
    } else {
      view->DispatchMessage(message);
    }
  }
  view->ReleaseCapture();
  FeedbackDC layer(feedback, *view);
  Cancel(&layer);
  return false;
}

void BaseTracker::DrawLines(CDC& dc, std::span<const POINT> points) {
  const CPen oldPen = dc.SelectPen(DrawResources::Instance().rubberPen);
  dc.MoveTo(points.front());
  for (const POINT p : points.subspan(1)) dc.LineTo(p);
  dc.SelectPen(oldPen);
}

}  // namespace morvane
