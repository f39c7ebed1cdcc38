#include "surface/ChartPicture.h"

#include <limits>
#include <memory>
#include <unordered_map>

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "persistence/CDocument.h"
#include "states/GenericState.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectNames.h"
#include "surface/ReadingOrder.h"
#include "surface/RunMarks.h"

namespace morvane {

namespace {

/// The room on the far sides of a chart, and around a selection, model units.
constexpr std::int32_t kMargin = 1;

/// The box of the objects, or of the selected ones, model units; empty if there are none.
RECT BoxOf(const LayoutMgr& chart, bool selectionOnly) {
  RECT box;
  for (const Shape* shape : chart.GetModel().Objects()) {
    if (selectionOnly && !chart.GetSelection().Contains(shape)) continue;
    box = UnionRect(box, shape->GetPaperBounds());
  }
  return box;
}

/// From one model coordinate to another in logical units; the greatest number if those can't hold
/// the two.
std::int32_t LogicalDistance(const LayoutMgr& chart, std::int32_t from, std::int32_t to) {
  constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  const std::int32_t first = chart.ToLogical(from);
  const std::int32_t last = chart.ToLogical(to);
  const bool fits = first > low && first < high && last > low && last < high;
  return fits ? SubSat(last, first) : high;
}

}  // namespace

ChartPicture::ChartPicture(LayoutMgr& chart, const PictureOptions& options)
    : chart(chart), selectionOnly(options.selectionOnly) {
  SetForm(options);
  const bool isCutOut = selectionOnly || options.margin;
  framed = isCutOut;
  RECT area;
  if (isCutOut) {
    area = BoxOf(chart, selectionOnly);
    if (!options.margin) area = InflateRect(area, kMargin);
  } else {
    chart.GetChartExtent(area.right, area.bottom);
    area.right = AddSat(area.right, kMargin);
    area.bottom = AddSat(area.bottom, kMargin);
  }
  const std::int32_t around = options.margin.value_or(0);
  origin = chart.ToLogical(TopLeft(area)) - POINT{around, around};
  size = {AddSat(LogicalDistance(chart, area.left, area.right), 2 * around),
          AddSat(LogicalDistance(chart, area.top, area.bottom), 2 * around)};
}

PictureInfo ChartPicture::About() const {
  const ModelProperties& properties = chart.GetProperties();
  // What every new chart is called says nothing.
  const ModelProperties untouched;
  PictureInfo info;
  if (properties.ModelName != untouched.ModelName) info.title = ToUtf8(properties.ModelName);
  const CDocument* document = chart.GetDocument();
  if (info.title.empty() && document != nullptr) info.title = ToUtf8(document->GetTitle());
  if (properties.Author != untouched.Author) info.author = ToUtf8(properties.Author);
  const auto order = std::make_shared<const ReadingOrder>(chart.GetModel());
  std::unordered_map<const Shape*, int> depths;
  for (const Shape* shape : order->Objects()) {
    const auto* state = dynamic_cast<const GenericState*>(shape);
    if (state == nullptr || (selectionOnly && !chart.GetSelection().Contains(shape))) continue;
    const auto holder = depths.find(order->HolderOf(shape));
    const int depth = holder != depths.end() ? holder->second + 1 : 0;
    depths[shape] = depth;
    const POINT corner = chart.ToLogical(TopLeft(shape->GetBounds())) - origin;
    info.outline.push_back({ToUtf8(state->GetName()), corner, depth});
  }
  info.nameOf = [order, &model = chart.GetModel()](std::int32_t id) {
    const Shape* shape = model.Find(id);
    return shape != nullptr ? ToUtf8(NameOfObject(*shape, *order)) : std::string();
  };
  return info;
}

void ChartPicture::Paint(CDC& dc) const {
  const POINT oldOrigin = dc.GetViewportOrg();
  dc.SetViewportOrg(oldOrigin - origin);
  dc.SetTextColor(chart.GetTextColor());
  chart.GetModel().DrawAll(&dc, selectionOnly);
  if (!selectionOnly) chart.GetRunMarks().DrawOnPicture(dc);
  dc.SetViewportOrg(oldOrigin);
}

}  // namespace morvane
