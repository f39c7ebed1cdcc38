#pragma once

#include <optional>
#include <string>

#include "drawing/PdfFonts.h"
#include "drawing/VectorDC.h"

namespace morvane {

/// A context that writes the content of a page as PDF has it, text as text. The fonts have to
/// outlive it.
class PdfDC : public VectorDC {
 public:
  PdfDC(CDC& reference, SIZE size, PdfFonts& fonts);

  /// Ends the page and hands its content over.
  std::string Close();
  /// What the content calls a face of the fonts, and the unit in which it stands on the page.
  static std::string NameOfFace(int face) { return std::string("F").append(std::to_string(face)); }
  static constexpr double kPointsPerUnit = 72.0 / 96;

  void Polyline(std::span<const POINT> points) override;
  void Polygon(std::span<const POINT> points) override;
  void Rectangle(const RECT& r) override;
  void RoundRect(const RECT& r, SIZE cornerEllipse) override;
  void Ellipse(const RECT& r) override;
  void Arc(const RECT& r, POINT start, POINT end) override;
  void FillRect(const RECT& r, const CBrush& with) override;
  void TextOut(POINT topLeft, std::string_view utf8, const RECT* clip) override;

 private:
  enum class Cap { Butt = 0, Round = 1, Square = 2 };
  enum class Join { Miter = 0, Round = 1 };
  /// What the content has set up.
  struct State {
    std::optional<COLORREF> fill;
    std::optional<COLORREF> stroke;
    double width = 1;
    Cap cap = Cap::Butt;
    Join join = Join::Miter;
    PenStyle style = PenStyle::Solid;
  };

  void Number(double v);
  void Operator(std::string_view name);
  void Point(Spot p, std::string_view name);
  void CurveTo(Spot a, Spot b, Spot end);
  void BoxPath(const Box& box);
  void Quarter(Spot centre, Spot radii, double from, double to);
  void SetFill(COLORREF colour);
  void SetColour(COLORREF colour, std::string_view name);
  void SetStroke(Cap cap, Join join);
  void PaintShape();
  void FlushLines();
  void ThickenLetters(double extra);
  void WriteRun(const PdfFonts::Run& run, Spot baseline);

  PdfFonts& fonts;
  std::string content;
  State state;
  bool hasLines = false;  ///< connected lines still grow at the end of the content
  CPen linePen;
  POINT lineEnd;
};

}  // namespace morvane
