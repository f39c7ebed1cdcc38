#pragma once

#include <string_view>

#include "drawing/Geometry.h"
#include "model/Editors.h"

namespace morvane {

class CDC;

/// How a chart goes on paper: under a mapping of 120 logical units to the inch, cut into pages row
/// by row, or all of it on one page. At the foot of each page there may be a strip with the chart's
/// name and the number of the page.
class PrintMapping {
 public:
  /// As the user has chosen last.
  PrintMapping();

  bool IsToFit() const { return choice.printToFit != 0; }
  int PagesAcross() const { return pagesAcross; }
  int PagesDown() const { return pagesDown; }

  /// Lets the user choose; that holds for the charts that are opened later, too.
  void Edit();
  /// Divides a chart with that lower right corner, in logical units, into pages of a printer, and
  /// gives their number.
  int Begin(CDC& dc, SIZE extent);
  /// Moves the context of the printer to a page, counted from 1.
  void SelectPage(CDC& dc, int page) const;
  /// Writes the foot of a page over what reaches into it, if there is to be one.
  void DrawFoot(CDC& dc, int page, std::string_view title) const;

 private:
  void Select(CDC& dc) const;
  bool HasFoot() const;
  std::int32_t FootPixels() const;

  SIZE paperExt;          ///< all of a page, logical units
  SIZE paperPixels;       ///< the same in device pixels of the printer
  SIZE printWindowExt;    ///< what a page shows of the chart, logical units
  SIZE printViewportExt;  ///< where it shows that, device pixels of the printer
  int pagesAcross = 1;
  int pagesDown = 1;
  PaperChoice choice;
};

}  // namespace morvane
