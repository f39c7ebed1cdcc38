#include "surface/ViewGeometry.h"

#include <algorithm>
#include <cstdint>

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Defaults.h"
#include "model/DrawResources.h"

namespace morvane {

namespace {

/// What the surface has beyond the last object once that comes near the edge, model units.
constexpr std::int32_t kRoom = 100;
/// A page step of the scroll bars, model units.
constexpr std::int32_t kPageStep = 6;

/// What is to fill the window keeps so far away from its edges, model units.
constexpr std::int32_t kFitMargin = 2;

/// The part of a window, as a fraction, that stays free before what was scrolled into it.
constexpr std::int64_t kLead = 6;

constexpr SIZE kChartSize = ChartView::kChartSize;

}  // namespace

ViewGeometry::ViewGeometry(ChartView& view) : view(view), surface(kChartSize) {}

void ViewGeometry::Begin() {
  const std::int32_t page = view.ToLogical(view.GetZoom());
  view.SetScrollSizes({view.ToLogical(kChartSize.cx), view.ToLogical(kChartSize.cy)}, {page, page});
  showGrid = Defaults::Instance().ShowGrid != 0;
}

SIZE ViewGeometry::SurfaceInPixels() const {
  return {view.ToDevice(surface.cx), view.ToDevice(surface.cy)};
}

void ViewGeometry::MakeRoom(POINT corner) {
  const auto reach = [](std::int32_t least, std::int32_t from) {
    return std::clamp(AddSat(from, kRoom), least, ChartView::kLargestChart);
  };
  surface = {reach(kChartSize.cx, corner.x), reach(kChartSize.cy, corner.y)};
  const SIZE needed = SurfaceInPixels();
  const SIZE total = view.GetTotalSize();
  if (needed.cx <= total.cx && needed.cy <= total.cy) return;
  const std::int32_t page = view.ToDevice(kPageStep);
  view.SetScrollSizes({std::max(needed.cx, total.cx), std::max(needed.cy, total.cy)}, {page, page});
}

void ViewGeometry::SetSurface() {
  const std::int32_t page = view.ToDevice(kPageStep);
  view.SetScrollSizes(SurfaceInPixels(), {page, page});
}

void ViewGeometry::ApplyZoom(int oldZoom, POINT client) {
  const POINT from = view.GetScrollPosition();
  if (kept.client != client || kept.scrolledTo != from || kept.zoom != oldZoom) {
    const double zoom = oldZoom;
    kept = {client, (from.x + client.x) / zoom, (from.y + client.y) / zoom, {}, 0};
  }
  SetSurface();
  const auto place = [this](double model, std::int32_t pixel) {
    const int zoom = view.GetZoom();
    return view.ToDevice(RoundHalfAway(model - static_cast<double>(pixel) / zoom));
  };
  view.SetScrollPos(ScrollBar::Horizontal, place(kept.x, client.x));
  view.SetScrollPos(ScrollBar::Vertical, place(kept.y, client.y));
  kept.scrolledTo = view.GetScrollPosition();
  kept.zoom = view.GetZoom();
  view.Invalidate();
}

int ViewGeometry::ZoomToFit(const RECT& model) const {
  const RECT client = view.GetClientRect();
  const RECT around = InflateRect(model, kFitMargin);
  const std::int64_t fits = std::min(Width(client) / std::max<std::int64_t>(Width(around), 1),
                                     Height(client) / std::max<std::int64_t>(Height(around), 1));
  return static_cast<int>(
      std::clamp<std::int64_t>(fits, ChartView::kLeastShownZoom, ChartView::kMaxZoom));
}

POINT ViewGeometry::MiddleOfWindow() const { return CentreOf(view.GetClientRect()); }

void ViewGeometry::ScrollToMiddle(const RECT& model) {
  SetSurface();
  view.ScrollTo(view.ToDevice(CentreOf(model)) - MiddleOfWindow());
}

void ViewGeometry::PrepareMapping(CDC& dc) const {
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt({view.ToLogical(kChartSize.cx), view.ToLogical(kChartSize.cy)});
  dc.SetViewportExt({view.ToDevice(kChartSize.cx), view.ToDevice(kChartSize.cy)});
}

void ViewGeometry::DrawGrid(CDC& dc) const {
  // Below the least zoom that a chart can have its lines would lie too close.
  if (!showGrid || view.GetZoom() < ChartView::kMinZoom) return;
  const CPen oldPen = dc.SelectPen(DrawResources::Instance().gridPen);
  const std::int32_t step = view.ToDevice(kGridStep);
  const SIZE size = SurfaceInPixels();
  RECT clip = dc.GetClipBox();
  // A context without a clip, as of a recording, gets what the largest window would show.
  constexpr std::int32_t largestWindow = 1 << 15;
  clip.right = std::min(clip.right, AddSat(std::max(clip.left, 0), largestWindow));
  clip.bottom = std::min(clip.bottom, AddSat(std::max(clip.top, 0), largestWindow));
  const auto firstLine = [step](std::int32_t from) { return std::max(from / step, 1) * step; };
  for (std::int32_t x = firstLine(clip.left); x < std::min(size.cx, clip.right); x += step) {
    dc.MoveTo({x, 0});
    dc.LineTo({x, size.cy});
  }
  for (std::int32_t y = firstLine(clip.top); y < std::min(size.cy, clip.bottom); y += step) {
    dc.MoveTo({0, y});
    dc.LineTo({size.cx, y});
  }
  dc.SelectPen(oldPen);
}

void ViewGeometry::ScrollIntoView(const RECT& model) {
  // Not all of a surface can be seen that has kept the size of its first showing.
  SetSurface();
  const RECT client = view.GetClientRect();
  const RECT shown = view.ToClient(model);
  const auto distance = [](std::int32_t start, std::int32_t end, std::int64_t room) {
    if (start >= 0 && end <= room) return 0;
    const std::int64_t free = room - end + start;
    return Saturate(start -
                    std::clamp<std::int64_t>(room / kLead, 0, std::max<std::int64_t>(free, 0)));
  };
  view.OnScrollBy({distance(shown.left, shown.right, Width(client)),
                   distance(shown.top, shown.bottom, Height(client))});
}

RECT ViewGeometry::InSight() const { return view.AddScroll(view.ToModel(view.GetClientRect())); }

void ViewGeometry::KeepInSight(const RECT& model) {
  const RECT client = view.GetClientRect();
  if (IsRectEmpty(client)) return;
  SetSurface();
  const RECT shown = view.ToClient(model);
  const std::int32_t step = view.ToDevice(1);
  const auto distance = [step](std::int64_t start, std::int64_t end, std::int64_t room) {
    if (end - start > room) {
      if (start < room && end > 0) return 0;
      return Saturate(start);
    }
    if (start < 0) return Saturate(start);
    // The surface goes by whole steps.
    return end > room ? Saturate((end - room + step - 1) / step * step) : 0;
  };
  view.OnScrollBy({distance(shown.left, shown.right, Width(client)),
                   distance(shown.top, shown.bottom, Height(client))});
}

bool ViewGeometry::ScrollByKey(VirtualKey key) {
  switch (key) {
    case VirtualKey::Prior: view.OnScroll(ScrollBar::Vertical, ScrollCode::PageBack); break;
    case VirtualKey::Next: view.OnScroll(ScrollBar::Vertical, ScrollCode::PageForward); break;
    case VirtualKey::Home:
      view.OnScroll(ScrollBar::Vertical, ScrollCode::ToStart);
      view.OnScroll(ScrollBar::Horizontal, ScrollCode::ToStart);
      break;
    case VirtualKey::Left: view.OnScroll(ScrollBar::Horizontal, ScrollCode::LineBack); break;
    case VirtualKey::Up: view.OnScroll(ScrollBar::Vertical, ScrollCode::LineBack); break;
    case VirtualKey::Right: view.OnScroll(ScrollBar::Horizontal, ScrollCode::LineForward); break;
    case VirtualKey::Down: view.OnScroll(ScrollBar::Vertical, ScrollCode::LineForward); break;
    default: return false;
  }
  return true;
}

}  // namespace morvane
