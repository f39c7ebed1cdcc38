#pragma once

#include "drawing/DrawingTools.h"
#include "platform/Message.h"

namespace morvane {

/// The pens, brushes, cursors and masks that all painting shares. There is one for the process.
class DrawResources {
 public:
  static const DrawResources& Instance();

  CBrush nullBrush = CBrush::Null();
  CBrush blackBrush = CBrush::Solid(0x000000);   ///< discs of initial and final states
  CBrush anchorBrush = CBrush::Solid(0xC0C0C0);  ///< anchor marks
  CBrush linkBrush = CBrush::Solid(0x00C000);    ///< what ties a message to its transition

  CPen routePen{PenStyle::Solid, 0, 0xFF8000};           ///< on the screen, both ends attached
  CPen freeRoutePen{PenStyle::DashDotDot, 0, 0x0000FF};  ///< on the screen, with a free end
  CPen printRoutePen{PenStyle::Solid, 0, 0x000000};
  CPen printFreeRoutePen{PenStyle::DashDotDot, 0, 0x000000};
  CPen markerPen{PenStyle::Solid, 1, 0x0000FF};  ///< the mark on the anchor under the pointer
  CPen rubberPen{PenStyle::Dot, 0, 0x404040};    ///< rubber lines and ghosts
  CPen gridPen{PenStyle::Dot, 0, 0xF0F0F0};

  COLORREF handleColour = 0xFF0000;  ///< handles of transitions and lines

  /// The mark of an anchor.
  BitMask anchorMask{5, 5, {0x70, 0xF8, 0xF8, 0xF8, 0x70}};

  Cursor arrow = Cursor::Arrow;
  Cursor sizeWestEast = Cursor::SizeWE;
  Cursor sizeNorthSouth = Cursor::SizeNS;
  Cursor lineEnd = Cursor::DiagonalDouble;
  Cursor moveWhole = Cursor::ArrowWithCross;
  Cursor overLine = Cursor::PlainArrow;
  Cursor endHandle = Cursor::DiagonalHandle;

 private:
  DrawResources() = default;
};

}  // namespace morvane
