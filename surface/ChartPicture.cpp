#include "surface/ChartPicture.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>

#include "drawing/CMetaFileDC.h"
#include "drawing/EmfWriter.h"
#include "drawing/SvgDC.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/Pictures.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"
#include "surface/RunMarks.h"

namespace morvane {

namespace {

constexpr std::string_view kPng = ".png";
constexpr std::string_view kSvg = ".svg";
constexpr std::string_view kPdf = ".pdf";
constexpr std::string_view kEmf = ".emf";

constexpr std::array kKinds = {ChartPicture::FileKind{kPng, "PNG Picture (*.png)"},
                               ChartPicture::FileKind{kSvg, "SVG Drawing (*.svg)"},
                               ChartPicture::FileKind{kPdf, "PDF Page (*.pdf)"},
                               ChartPicture::FileKind{kEmf, "Enhanced Metafile (*.emf)"}};

/// What an enhanced metafile says of itself: the program and the picture.
constexpr std::string_view kDescription{"Morvane\0Copy", 12};
/// The room on the far sides of a chart, and around a selection, model units.
constexpr std::int32_t kMargin = 1;

/// The box of the selected objects, model units; empty if there are none.
RECT SelectionBox(const LayoutMgr& chart) {
  RECT box;
  for (const Shape* shape : chart.GetModel().Objects()) {
    if (chart.GetSelection().Contains(shape)) box = UnionRect(box, shape->GetPaperBounds());
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

std::span<const ChartPicture::FileKind> ChartPicture::FileKinds() { return kKinds; }

const ChartPicture::FileKind* ChartPicture::KindOf(std::string_view path) {
  const auto* found = std::ranges::find(kKinds, ExtensionOf(path), &FileKind::extension);
  return found != kKinds.end() ? found : nullptr;
}

ChartPicture::ChartPicture(LayoutMgr& chart, bool selectionOnly)
    : chart(chart), selectionOnly(selectionOnly) {
  RECT area;
  if (selectionOnly) area = InflateRect(SelectionBox(chart), kMargin);
  if (!selectionOnly) {
    chart.GetChartExtent(area.right, area.bottom);
    area.right = AddSat(area.right, kMargin);
    area.bottom = AddSat(area.bottom, kMargin);
  }
  origin = chart.ToLogical(TopLeft(area));
  size = {LogicalDistance(chart, area.left, area.right),
          LogicalDistance(chart, area.top, area.bottom)};
}

void ChartPicture::Paint(CDC& dc) const {
  const POINT oldOrigin = dc.GetViewportOrg();
  dc.SetViewportOrg(oldOrigin - origin);
  dc.SetTextColor(chart.GetTextColor());
  chart.GetModel().DrawAll(&dc, selectionOnly);
  if (!selectionOnly) chart.GetRunMarks().DrawOnPicture(dc);
  dc.SetViewportOrg(oldOrigin);
}

std::string ChartPicture::MakeEmf() const {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  CMetaFileDC dc(*reference);
  Paint(dc);
  Metafile metafile = dc.Close();
  // A chart's metafile is framed by what is drawn on it, and only so far as there is anything.
  const bool framed = selectionOnly || metafile.records.empty();
  if (!framed) return EmfWriter::Encode(metafile, *reference, kDescription);
  metafile.MoveBy(POINT{} - origin);
  const RECT frame{0, 0, size.cx, size.cy};
  return EmfWriter::Encode(metafile, *reference, kDescription, &frame);
}

std::string ChartPicture::MakeSvg() const {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  SvgDC dc(*reference, size);
  Paint(dc);
  return dc.Close();
}

std::optional<std::string> ChartPicture::MakePng() const {
  return Service<Pictures>::Get().MakePng(size, [this](CDC& dc) { Paint(dc); });
}

std::optional<std::string> ChartPicture::MakePdf() const {
  return Service<Pictures>::Get().MakePdf(size, [this](CDC& dc) { Paint(dc); });
}

std::optional<std::string> ChartPicture::MakeFile(const FileKind& kind) const {
  if (kind.extension == kPng) return MakePng();
  if (kind.extension == kPdf) return MakePdf();
  if (size.cx > kMaxSide || size.cy > kMaxSide) return std::nullopt;
  return kind.extension == kSvg ? MakeSvg() : MakeEmf();
}

std::string ChartPicture::Save(const std::string& path) const {
  const FileKind* kind = KindOf(path);
  if (kind == nullptr) return LoadText(IDS_PICTURE_KIND);
  try {
    const std::optional<std::string> bytes = MakeFile(*kind);
    if (!bytes) return LoadText(IDS_PICTURE_TOO_LARGE);
    return ModelFile::ReasonOf(ReplaceWholeFile(path, *bytes));
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

}  // namespace morvane
