#include "surface/PrintMapping.h"

#include "drawing/CDC.h"
#include "model/Editors.h"
#include "model/ModelMgr.h"
#include "platform/Service.h"

namespace morvane {

namespace {

constexpr std::int64_t kUnitsPerInch = 120;
constexpr std::int64_t kMillimetresPerInchTimesTen = 254;

/// A length of the paper in logical units.
std::int32_t ToPaperUnits(int millimetres) {
  return Saturate(std::int64_t{millimetres} * kUnitsPerInch * 10 / kMillimetresPerInchTimesTen);
}

/// How many pages hold `extent`: it counts as device pixels that turn into logical units, and those
/// as millimetres of the page. Both divisions truncate.
int CountPages(std::int32_t extent, std::int32_t windowExt, int pixels, int millimetres) {
  if (pixels <= 0 || millimetres <= 0) return 1;
  const std::int64_t logical = std::int64_t{extent} * windowExt / pixels;
  return Saturate(logical / millimetres + 1);
}

}  // namespace

void PrintMapping::Edit() { Service<Editors>::Get().EditPaper(printToFit); }

int PrintMapping::Begin(CDC& dc, SIZE extent) {
  const SIZE paper{dc.GetDeviceCaps(DeviceCap::HorzSize), dc.GetDeviceCaps(DeviceCap::VertSize)};
  printWindowExt = {ToPaperUnits(paper.cx), ToPaperUnits(paper.cy)};
  printViewportExt = {dc.GetDeviceCaps(DeviceCap::HorzRes), dc.GetDeviceCaps(DeviceCap::VertRes)};
  if (printToFit != 0 && extent.cx != 0 && extent.cy != 0) {
    printWindowExt = extent;
    pagesAcross = 1;
    pagesDown = 1;
  } else {
    pagesAcross = CountPages(extent.cx, printWindowExt.cx, printViewportExt.cx, paper.cx);
    pagesDown = CountPages(extent.cy, printWindowExt.cy, printViewportExt.cy, paper.cy);
  }
  Select(dc);
  return MulSat(pagesAcross, pagesDown);
}

void PrintMapping::SelectPage(CDC& dc, int page) const {
  Select(dc);
  const int row = (page - 1) / pagesAcross;
  const int column = (page - 1) % pagesAcross;
  dc.SetViewportOrg({MulSat(-printViewportExt.cx, column), MulSat(-printViewportExt.cy, row)});
}

void PrintMapping::Select(CDC& dc) const {
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt(printWindowExt);
  dc.SetViewportExt(printViewportExt);
}

}  // namespace morvane
