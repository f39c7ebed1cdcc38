#include "platform/CScrollView.h"

#include <algorithm>

#include "drawing/CDC.h"
#include "platform/CPrintInfo.h"
#include "platform/ViewPages.h"
#include "platform/WindowPeer.h"

namespace morvane {

namespace {

/// A notch of the wheel is 120 eighths of a degree and goes so far, device pixels.
constexpr int kNotch = 120;
constexpr int kNotchPixels = 60;

/// A page less this part of it is scrolled at once.
constexpr int kPageOverlap = 10;

}  // namespace

CScrollView::Gesture::Gesture(CScrollView& view) : view(view) { ++view.gestures; }

CScrollView::Gesture::~Gesture() {
  if (--view.gestures > 0) return;
  view.position = view.ShownPosition();
  view.SetDrift({});
}

void CScrollView::SetScrollSizes(SIZE totalSize, SIZE pageSize) {
  total = totalSize;
  page = pageSize;
  UpdateBars();
}

int CScrollView::GetScrollPos(ScrollBar bar) const {
  return bar == ScrollBar::Horizontal ? position.x : position.y;
}

void CScrollView::SetScrollPos(ScrollBar bar, int value) {
  const int limited = std::clamp(value, 0, GetScrollLimit(bar));
  (bar == ScrollBar::Horizontal ? position.x : position.y) = limited;
  UpdateBars();
}

int CScrollView::GetScrollLimit(ScrollBar bar) const {
  const RECT client = GetClientRect();
  const std::int64_t hidden =
      bar == ScrollBar::Horizontal ? total.cx - Width(client) : total.cy - Height(client);
  if (hidden <= 0) return 0;
  const std::int64_t step = ScrollStep();
  return Saturate((hidden + step - 1) / step * step);
}

void CScrollView::OnPrepareDC(CDC& dc) { dc.SetViewportOrg(POINT{} - ShownPosition()); }

Mapping CScrollView::ClientMapping() const {
  Mapping mapping;
  mapping.SetViewportOrg(POINT{} - GetDrift());
  return mapping;
}

bool CScrollView::OnScrollBy(SIZE distance) {
  const POINT old = ShownPosition();
  const POINT place{
      std::clamp(AddSat(old.x, distance.cx), 0, GetScrollLimit(ScrollBar::Horizontal)),
      std::clamp(AddSat(old.y, distance.cy), 0, GetScrollLimit(ScrollBar::Vertical))};
  if (gestures > 0) {
    SetDrift(place - position);
  } else {
    position = place;
  }
  UpdateBars();
  if (place == old) return false;
  Invalidate();
  return true;
}

void CScrollView::OnWheel(ScrollBar bar, int angle) {
  int& rest = bar == ScrollBar::Horizontal ? wheelRest.x : wheelRest.y;
  rest = AddSat(rest, MulSat(angle, kNotchPixels));
  const int step = ScrollStep();
  const int steps = rest / (kNotch * step);
  rest -= steps * kNotch * step;
  const int distance = -MulSat(steps, step);
  OnScrollBy(bar == ScrollBar::Horizontal ? SIZE{distance, 0} : SIZE{0, distance});
}

void CScrollView::ScrollTo(POINT place) {
  const POINT distance = place - ShownPosition();
  OnScrollBy({distance.x, distance.y});
}

void CScrollView::OnScroll(ScrollBar bar, ScrollCode code, int target) {
  const int distance = DistanceOf(bar, code, target);
  OnScrollBy(bar == ScrollBar::Horizontal ? SIZE{distance, 0} : SIZE{0, distance});
}

int CScrollView::DistanceOf(ScrollBar bar, ScrollCode code, int target) const {
  const int shown = bar == ScrollBar::Horizontal ? ShownPosition().x : ShownPosition().y;
  switch (code) {
    case ScrollCode::LineBack: return -ScrollStep();
    case ScrollCode::LineForward: return ScrollStep();
    case ScrollCode::PageBack: return -PageStep(bar);
    case ScrollCode::PageForward: return PageStep(bar);
    case ScrollCode::ToStart: return SubSat(0, shown);
    case ScrollCode::ToEnd: return SubSat(GetScrollLimit(bar), shown);
    case ScrollCode::ToPosition: return SubSat(target, shown);
  }
  return 0;
}

int CScrollView::PageStep(ScrollBar bar) const {
  const bool across = bar == ScrollBar::Horizontal;
  const RECT client = GetClientRect();
  const std::int64_t seen = across ? Width(client) : Height(client);
  const auto most = static_cast<int>(seen - seen / kPageOverlap);
  return std::max({across ? page.cx : page.cy, most, 1});
}

void CScrollView::OnSize() {
  const POINT old = position;
  position.x = std::min(position.x, GetScrollLimit(ScrollBar::Horizontal));
  position.y = std::min(position.y, GetScrollLimit(ScrollBar::Vertical));
  if (position != old) Invalidate();
  UpdateBars();
}

void CScrollView::UpdateBars() {
  if (Peer() == nullptr) return;
  for (const ScrollBar bar : {ScrollBar::Horizontal, ScrollBar::Vertical}) {
    Peer()->SetScrollBar(bar, GetScrollLimit(bar), ScrollStep(), PageStep(bar),
                         bar == ScrollBar::Horizontal ? ShownPosition().x : ShownPosition().y);
  }
}

bool CScrollView::DoPreparePrinting(CPrintInfo& info) {
  return info.preview || Service<Printing>::Get().AskPrinter(info, ViewPages(*this).Title());
}

void CScrollView::OnFilePrint(bool direct) { ViewPages(*this).RunPrint(direct); }

void CScrollView::OnFilePrintPreview() { ViewPages(*this).RunPreview(); }

}  // namespace morvane
