#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "drawing/DrawingTools.h"
#include "model/ShapeGeometry.h"
#include "platform/CScrollView.h"

namespace morvane {

class Collection;
class ObjectBrowser;
class Shape;

/// What the objects of a chart know of the view that shows them: a window that scrolls and can be
/// drawn on, the conversions between its three kinds of coordinates, and what they ask of it. Model
/// units are stored, logical units are painted, six to a model unit, and device pixels are the
/// mouse's, `zoom` to a model unit.
class ChartView : public CScrollView {
 public:
  static constexpr std::int16_t kMinZoom = 2;
  /// A view can show a chart smaller than the least zoom that is stored.
  static constexpr std::int16_t kLeastShownZoom = 1;
  static constexpr std::int16_t kMaxZoom = 13;
  static constexpr std::int16_t kNormalZoom = 6;
  static constexpr std::int32_t kLogicalPerModel = 6;
  static constexpr SIZE kChartSize{1500, 1500};  ///< model units, as long as that is enough
  /// Where the surface ends at the latest, model units.
  static constexpr std::int32_t kLargestChart = 10'000'000;

  // Conversions. The point and rectangle forms treat each coordinate alone.
  std::int32_t ToLogical(std::int32_t model) const { return MulSat(model, kLogicalPerModel); }
  std::int32_t ToDevice(std::int32_t model) const { return MulSat(model, zoom); }
  std::int32_t ToModel(std::int32_t device) const {
    return RoundHalfAway(static_cast<double>(device) / zoom);
  }
  POINT ToLogical(POINT p) const { return {ToLogical(p.x), ToLogical(p.y)}; }
  POINT ToDevice(POINT p) const { return {ToDevice(p.x), ToDevice(p.y)}; }
  POINT ToModel(POINT p) const { return {ToModel(p.x), ToModel(p.y)}; }
  RECT ToLogical(const RECT& r) const;
  RECT ToDevice(const RECT& r) const;
  RECT ToModel(const RECT& r) const;
  /// Adds or subtracts the scroll position, in model units.
  POINT AddScroll(POINT p) const { return p + ScrollInModel(); }
  POINT SubScroll(POINT p) const { return p - ScrollInModel(); }
  RECT AddScroll(const RECT& r) const { return r + ScrollInModel(); }
  RECT SubScroll(const RECT& r) const { return r - ScrollInModel(); }
  /// Device pixels of an absolute model point, and back.
  POINT ToClient(POINT model) const { return ToDevice(SubScroll(model)); }
  RECT ToClient(const RECT& model) const { return ToDevice(SubScroll(model)); }
  POINT ToAbsolute(POINT client) const { return AddScroll(ToModel(client)); }
  /// From logical units to device pixels of the client area, as the window shows the chart now.
  Mapping LogicalMapping() const;
  std::int16_t GetZoom() const { return zoom; }
  /// The nearest point of the surface, model units: beyond its left and top edge nothing shows.
  static POINT OnChart(POINT p) { return {std::max(p.x, 0), std::max(p.y, 0)}; }

  /// Asks for a repaint of rectangles in device pixels.
  void InvalidateModelRect(const RECT& device) { InvalidateRect(device); }
  void InvalidateModelRect(const RECT& first, const RECT& second);

  virtual Collection& GetSelection() const = 0;
  /// Null for a chart that no browser follows.
  virtual ObjectBrowser* GetObjectTree() const = 0;
  /// Other objects are selected now. It may be called for thousands of them, one by one.
  virtual void OnSelectionChanged() {}
  /// Tells the browser, if there is one, that an object shows differently now.
  void UpdateNodes(Shape* shape);

  enum class Letters { Normal, Bold };
  virtual const CFont& GetBoldFont() const = 0;
  virtual COLORREF GetTextColor() const = 0;
  /// Sets a text in the chart's font and colour into a rectangle in logical units, broken at words
  /// and cut off at the rectangle.
  virtual void DrawChartText(CDC& dc, std::string_view text, const RECT& area) const = 0;

  /// The size of a text in the chart's font, logical units, if it is broken at words to a width.
  virtual SIZE MeasureChartText(std::string_view text, std::int32_t width,
                                Letters letters = Letters::Normal) const = 0;

  /// Lets the user edit the text of a shape where it stands; false if it has none for that.
  virtual bool EditInPlace(Shape& shape) = 0;

  /// What came of a press that may start a connection.
  enum class ConnectionPress {
    NotHere,  ///< there is no anchor that one could start at
    Used,     ///< a connection was drawn, or given up
    Click     ///< the button came up again where it was pressed
  };
  /// Draws a connection from a press by an anchor, a client point, to where the button comes up.
  virtual ConnectionPress BeginConnection(unsigned flags, POINT press) = 0;
  /// Opens the context menu of an object at a screen point and carries out what is chosen.
  virtual void ShowObjectMenu(Shape* shape, POINT screen) = 0;
  /// Notes a message that came up while the model was changing; it is shown, once, when the
  /// operation is over and the model whole.
  virtual void TellLater(std::string text) = 0;

 protected:
  POINT ScrollInModel() const { return ToModel(GetScrollPosition()); }

  std::int16_t zoom = kNormalZoom;
};

}  // namespace morvane
