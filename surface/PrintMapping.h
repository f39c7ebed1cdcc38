#pragma once

#include <cstdint>

#include "drawing/Geometry.h"

namespace morvane {

class CDC;

/// How a chart goes on paper: under a mapping of 120 logical units to the inch, cut into pages row
/// by row, or all of it on one page.
class PrintMapping {
 public:
  bool IsToFit() const { return printToFit != 0; }
  int PagesAcross() const { return pagesAcross; }
  int PagesDown() const { return pagesDown; }

  /// Lets the user choose whether the chart goes on one page. That is not stored.
  void Edit();
  /// Divides a chart with that lower right corner, in logical units, into pages of a printer, and
  /// gives their number.
  int Begin(CDC& dc, SIZE extent);
  /// Moves the context of the printer to a page, counted from 1.
  void SelectPage(CDC& dc, int page) const;

 private:
  void Select(CDC& dc) const;

  SIZE printWindowExt;    ///< logical units
  SIZE printViewportExt;  ///< device pixels of the printer
  int pagesAcross = 1;
  int pagesDown = 1;
  std::int32_t printToFit = 0;
};

}  // namespace morvane
