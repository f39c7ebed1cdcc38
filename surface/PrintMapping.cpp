#include "surface/PrintMapping.h"

#include <algorithm>
#include <string>

#include "drawing/CDC.h"
#include "drawing/TextCodec.h"
#include "model/Defaults.h"
#include "platform/Profile.h"
#include "platform/Service.h"
#include "platform/Wording.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int64_t kUnitsPerInch = 120;
constexpr std::int64_t kMillimetresPerInchTimesTen = 254;

/// A length of the paper in logical units.
std::int32_t ToPaperUnits(int millimetres) {
  return Saturate(std::int64_t{millimetres} * kUnitsPerInch * 10 / kMillimetresPerInchTimesTen);
}

/// How many pages of a length hold `extent`.
int CountPages(std::int32_t extent, std::int32_t page) {
  if (page <= 0 || extent <= 0) return 1;
  return Saturate((std::int64_t{extent} + page - 1) / page);
}

/// What is kept of the user's choice.
constexpr const char* kSection = "Print";
constexpr const char* kFit = "Fit";
constexpr const char* kTitles = "Titles";

/// "Page 1 of 2".
std::string PageText(int page, int count) {
  std::string text = WithName(Worded(kPageOfPages), std::to_string(page));
  const std::size_t place = text.find("%2");
  if (place != std::string::npos) text.replace(place, 2, std::to_string(count));
  return text;
}

/// The strip at the foot of a page, and what of it is free above the letters, logical units.
constexpr std::int32_t kFootHeight = 24;
constexpr std::int32_t kFootGap = 6;
/// The size of its letters, tenths of a point.
constexpr std::int32_t kFootLetters = 80;

}  // namespace

PrintMapping::PrintMapping() {
  Profile& profile = Service<Profile>::Get();
  choice.printToFit = profile.GetInt(kSection, kFit, 0);
  choice.sheetTitles = profile.GetInt(kSection, kTitles, 0);
}

void PrintMapping::Edit() {
  if (!Service<Editors>::Get().EditPaper(choice)) return;
  Service<Profile>::Get().Write(kSection, {{kFit, std::to_string(choice.printToFit)},
                                           {kTitles, std::to_string(choice.sheetTitles)}});
}

int PrintMapping::Begin(CDC& dc, SIZE extent) {
  paperExt = {ToPaperUnits(dc.GetDeviceCaps(DeviceCap::HorzSize)),
              ToPaperUnits(dc.GetDeviceCaps(DeviceCap::VertSize))};
  paperPixels = {dc.GetDeviceCaps(DeviceCap::HorzRes), dc.GetDeviceCaps(DeviceCap::VertRes)};
  printWindowExt = paperExt;
  printViewportExt = paperPixels;
  if (HasFoot()) {
    printWindowExt.cy -= kFootHeight;
    printViewportExt.cy -= FootPixels();
  }
  if (IsToFit() && extent.cx != 0 && extent.cy != 0) {
    printWindowExt = extent;
    pagesAcross = 1;
    pagesDown = 1;
  } else {
    pagesAcross = CountPages(extent.cx, printWindowExt.cx);
    pagesDown = CountPages(extent.cy, printWindowExt.cy);
  }
  Select(dc);
  return MulSat(pagesAcross, pagesDown);
}

/// Paper that is all foot has none.
bool PrintMapping::HasFoot() const {
  return choice.sheetTitles != 0 && paperExt.cy > 2 * kFootHeight;
}

std::int32_t PrintMapping::FootPixels() const {
  return Saturate(std::int64_t{paperPixels.cy} * kFootHeight / std::max(paperExt.cy, 1));
}

void PrintMapping::DrawFoot(CDC& dc, int page, std::string_view title) const {
  if (!HasFoot()) return;
  const Mapping former = dc.SetMapping(Mapping());
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt(paperExt);
  dc.SetViewportExt(paperPixels);
  const RECT foot{0, paperExt.cy - kFootHeight, paperExt.cx, paperExt.cy};
  dc.FillSolidRect(foot, RGB(255, 255, 255));
  const CFont oldFont =
      dc.SelectFont(CFont::FromTenthsOfPoint(kFootLetters, Defaults::Instance().FontName));
  const COLORREF oldColour = dc.SetTextColor(0);
  const std::string number = PageText(page, MulSat(pagesAcross, pagesDown));
  const std::int32_t width = dc.GetTextExtent(number).cx;
  const RECT room{0, foot.top + kFootGap, paperExt.cx - width - kFootGap, foot.bottom};
  dc.TextOut(TopLeft(room), ToUtf8(title), &room);
  dc.TextOut({paperExt.cx - width, room.top}, number, nullptr);
  dc.SetTextColor(oldColour);
  dc.SelectFont(oldFont);
  dc.SetMapping(former);
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
