#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "drawing/DrawingTools.h"
#include "drawing/Geometry.h"
#include "drawing/Mapping.h"
#include "drawing/TextRun.h"

namespace morvane {

class Metafile;

/// A drawing context: the one way onto a screen, a page, a picture file or a metafile. All points
/// and rectangles are in logical units, which the mapping turns into device pixels. A rectangle,
/// an ellipse or a fill leaves its right and bottom edge out, and where there are pixels a line
/// leaves out its last point. Selecting a pen, brush, font, colour or mode gives back the former
/// one.
class CDC {
 public:
  /// No more than this of one text is painted; what lies beyond can't be seen on any device.
  static constexpr std::size_t kMaxPaintedBytes = std::size_t{1} << 20;

  CDC() = default;
  virtual ~CDC() = default;
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  CPen SelectPen(const CPen& pen);
  CBrush SelectBrush(const CBrush& brush);
  CFont SelectFont(const CFont& font);
  COLORREF SetTextColor(COLORREF colour);
  /// The gaps of styled pens and of letters are left alone in both modes.
  BkMode SetBkMode(BkMode mode);
  RasterOp SetROP2(RasterOp op);
  const CPen& GetPen() const { return pen; }
  const CBrush& GetBrush() const { return brush; }
  const CFont& GetFont() const { return font; }
  COLORREF GetTextColor() const { return textColor; }
  RasterOp GetROP2() const { return rop; }

  void SetMapMode(MapMode mode) { mapping.SetMode(mode); }
  void SetWindowExt(SIZE logical) { mapping.SetWindowExt(logical); }
  void SetViewportExt(SIZE device) { mapping.SetViewportExt(device); }
  void SetViewportOrg(POINT device) { mapping.SetViewportOrg(device); }
  POINT GetViewportOrg() const { return mapping.ViewportOrg(); }
  POINT LPtoDP(POINT logical) const { return mapping.ToDevice(logical); }
  POINT DPtoLP(POINT device) const { return mapping.ToLogical(device); }
  const Mapping& GetMapping() const { return mapping; }
  /// Takes another mapping and gives back the former one; a fresh one is that of device pixels.
  Mapping SetMapping(const Mapping& other);

  /// What is drawn from here to `EndObject` belongs to the object of a chart with that id. Such
  /// pairs don't stand in each other.
  virtual void BeginObject(std::int32_t /*id*/) {}
  virtual void EndObject() {}
  /// True where lines are strokes, which end in their last point and not before it.
  virtual bool PaintsLastPoint() const { return false; }

  virtual int GetDeviceCaps(DeviceCap cap) const = 0;
  /// A rectangle outside which nothing shows, in logical units.
  virtual RECT GetClipBox() const = 0;
  bool RectVisible(const RECT& r) const;

  POINT MoveTo(POINT p);
  void LineTo(POINT p);
  /// Connected lines in the pen; the last point is left out.
  virtual void Polyline(std::span<const POINT> points) = 0;
  /// Filled with the brush (winding) and outlined with the pen.
  virtual void Polygon(std::span<const POINT> points) = 0;
  virtual void Rectangle(const RECT& r) = 0;
  virtual void RoundRect(const RECT& r, SIZE cornerEllipse) = 0;
  virtual void Ellipse(const RECT& r) = 0;
  /// The arc of the ellipse in `r` from the ray through `start` to the one through `end`,
  /// counter-clockwise as seen on the screen.
  virtual void Arc(const RECT& r, POINT start, POINT end) = 0;
  /// Fills without an outline; a hollow brush paints nothing.
  virtual void FillRect(const RECT& r, const CBrush& with) = 0;
  /// Paints the brush colour where the mask is set, one device pixel to the bit.
  virtual void FillMask(POINT topLeft, const BitMask& mask) = 0;
  /// One line of valid UTF-8 with its top left corner at `topLeft`, cut off at `clip` if given.
  virtual void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) = 0;
  /// The width and height of one line of valid UTF-8 in the present font.
  virtual SIZE GetTextExtent(std::string_view utf8) const = 0;
  /// The parts of one line of valid UTF-8 in the present font that each run in one direction, in
  /// the order of the text; views into it. A line from left to right alone is one part.
  virtual std::vector<TextRun> GetTextRuns(std::string_view utf8) const;
  virtual TextMetrics GetTextMetrics() const = 0;

  void FillSolidRect(const RECT& r, COLORREF colour) { FillRect(r, CBrush::Solid(colour)); }
  /// A frame one logical unit wide along the inside of `r`.
  void FrameRect(const RECT& r, const CBrush& with);
  /// A dotted frame that inverts what it lies on.
  void DrawFocusRect(const RECT& r);

  /// Sets `text`, bytes as a chart holds them, into `r`: lines at its line breaks and, with
  /// DT_WORDBREAK, where its script lets a line end, cut off at `r`. A paragraph that runs from
  /// right to left stands at the right edge, unless it is centred. With DT_CALCRECT nothing is
  /// painted and `r` takes the size of the text instead. Gives the height of the text.
  std::int32_t DrawText(std::string_view text, RECT& r, unsigned flags);

  /// Plays a recording with this context's mapping and raster mode, and puts back what was
  /// selected.
  void PlayMetaFile(const Metafile& metafile);

 private:
  /// Paints lines of a text, views into it, from the top of `r` on.
  void PaintLines(std::string_view utf8, const std::vector<std::string_view>& lines, const RECT& r,
                  unsigned flags);

  CPen pen;
  CBrush brush;
  CFont font;
  COLORREF textColor = 0;
  BkMode bkMode = BkMode::Opaque;
  RasterOp rop = RasterOp::CopyPen;
  Mapping mapping;
  POINT current;
};

}  // namespace morvane
