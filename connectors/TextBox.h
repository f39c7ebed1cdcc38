#pragma once

#include "drawing/Geometry.h"
#include "states/TextHandler.h"

namespace morvane {

class CDC;
class ChartView;

/// The text of a note.
class TextBox : public TextHandler {
 public:
  TextBox() = default;
  explicit TextBox(std::string text) : text(std::move(text)) {}

  void SetView(ChartView* chartView) { view = chartView; }
  const std::string& GetText() const { return text; }
  std::string& Text() { return text; }
  /// What is painted of the text: all but the characters "<M>", in UTF-8.
  std::string ShownText() const;
  /// Paints the text, without the characters "<M>", into a rectangle in logical units.
  void Draw(CDC* dc, const RECT* rect) const;

  std::vector<std::string*> Texts() override;
  bool EditText(const std::string& title) override;

 private:
  std::string text;
  ChartView* view = nullptr;
};

}  // namespace morvane
