#include "surface/WatchedView.h"

#include <algorithm>
#include <array>

#include "model/ModelMgr.h"
#include "model/Shape.h"
#include "resources/CommandIds.h"
#include "surface/LayoutMgr.h"

namespace morvane {

WatchedView::WatchedView(LayoutMgr& chart)
    : chart(chart),
      zoom(chart.GetZoom()),
      position(chart.GetScrollPosition()),
      selected(chart.GetModel().SelectedShapes()) {
  chart.GetModel().DeselectAll();
}

void WatchedView::Restore() const {
  chart.ShowAtZoom(zoom);
  chart.ScrollTo(position);
  chart.GetModel().Select(selected);
}

bool WatchedView::Allows(unsigned command) {
  constexpr std::array<unsigned, 12> allowed{
      ID_REFRESH,        ID_ZOOM_IN,   ID_ZOOM_NORMAL, ID_ZOOM_OUT,          ID_ZOOM_FIT,
      ID_ZOOM_SELECTION, ID_FILE_SAVE, ID_FILE_PRINT,  ID_FILE_PRINT_DIRECT, ID_FILE_PRINT_PREVIEW,
      ID_FILE_EXPORT,    ID_POINTER};
  constexpr unsigned zooms = LayoutMgr::kMaxZoom + 1;
  return std::ranges::find(allowed, command) != allowed.end() || command - ID_ZOOM_LEVEL < zooms;
}

}  // namespace morvane
