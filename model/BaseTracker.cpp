#include "model/BaseTracker.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/DrawResources.h"
#include "platform/ModalLoop.h"

bool BaseTracker::Track(ChartView* view) {
  if (view->HasCapture()) return false;
  const ModalLoop loop;
  view->SetCapture();
  view->UpdateWindow();
  while (true) {
    Message message = view->NextMessage();
    if (message.kind == Message::Kind::Quit || !view->HasCapture()) break;
    switch (message.kind) {
      case Message::Kind::MouseMove:
        if (callback != nullptr) callback(message.point, context);
        Move(message.point, view->GetDC().get());
        break;
      case Message::Kind::LButtonUp:
        view->ReleaseCapture();
        return Finish(message.point, view->GetDC().get());
      case Message::Kind::KeyDown:
        if (message.key == VirtualKey::Escape) {
          view->ReleaseCapture();
          Cancel(view->GetDC().get());
          return false;
        }
        view->DispatchMessage(message);
        break;
      default: view->DispatchMessage(message);
    }
  }
  // The mouse went to something else: the gesture leaves no trace.
  view->ReleaseCapture();
  Cancel(view->GetDC().get());
  return false;
}

void BaseTracker::Toggle(CDC& dc, const POINT* points, int count) {
  const RasterOp oldRop = dc.SetROP2(RasterOp::NotXorPen);
  const CPen oldPen = dc.SelectPen(DrawResources::Instance().rubberPen);
  dc.MoveTo(points[0]);
  for (int i = 1; i < count; ++i) dc.LineTo(points[i]);
  dc.SelectPen(oldPen);
  dc.SetROP2(oldRop);
}
