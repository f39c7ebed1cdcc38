#include "platform/CScrollView.h"

#include <algorithm>

#include "drawing/CDC.h"
#include "platform/CPrintInfo.h"
#include "platform/ViewPages.h"
#include "platform/WindowPeer.h"

namespace morvane {

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

void CScrollView::OnPrepareDC(CDC& dc) { dc.SetViewportOrg(POINT{} - position); }

bool CScrollView::OnScrollBy(SIZE distance) {
  const POINT old = position;
  position.x =
      std::clamp(AddSat(position.x, distance.cx), 0, GetScrollLimit(ScrollBar::Horizontal));
  position.y = std::clamp(AddSat(position.y, distance.cy), 0, GetScrollLimit(ScrollBar::Vertical));
  UpdateBars();
  if (position == old) return false;
  Invalidate();
  return true;
}

void CScrollView::OnScroll(ScrollBar bar, ScrollCode code, int target) {
  const int distance = DistanceOf(bar, code, target);
  OnScrollBy(bar == ScrollBar::Horizontal ? SIZE{distance, 0} : SIZE{0, distance});
}

int CScrollView::DistanceOf(ScrollBar bar, ScrollCode code, int target) const {
  switch (code) {
    case ScrollCode::LineBack: return -ScrollStep();
    case ScrollCode::LineForward: return ScrollStep();
    case ScrollCode::PageBack: return -PageStep(bar);
    case ScrollCode::PageForward: return PageStep(bar);
    case ScrollCode::ToStart: return SubSat(0, GetScrollPos(bar));
    case ScrollCode::ToEnd: return SubSat(GetScrollLimit(bar), GetScrollPos(bar));
    case ScrollCode::ToPosition: return SubSat(target, GetScrollPos(bar));
  }
  return 0;
}

int CScrollView::PageStep(ScrollBar bar) const {
  return std::max(bar == ScrollBar::Horizontal ? page.cx : page.cy, 1);
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
    Peer()->SetScrollBar(bar, GetScrollLimit(bar), ScrollStep(), PageStep(bar), GetScrollPos(bar));
  }
}

bool CScrollView::DoPreparePrinting(CPrintInfo& info) {
  return info.preview || Service<Printing>::Get().AskPrinter(info, ViewPages(*this).Title());
}

void CScrollView::OnFilePrint(bool direct) { ViewPages(*this).RunPrint(direct); }

void CScrollView::OnFilePrintPreview() { ViewPages(*this).RunPreview(); }

}  // namespace morvane
