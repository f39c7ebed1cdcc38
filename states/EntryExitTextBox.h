#pragma once

#include "drawing/Geometry.h"
#include "states/TextHandler.h"

namespace morvane {

class CDC;
class ChartView;

/// The entry text and the exit text of a state, verbatim, and how they are painted in its
/// compartment.
class EntryExitTextBox : public TextHandler {
 public:
  EntryExitTextBox() = default;
  explicit EntryExitTextBox(ChartView* view) : view(view) {}

  void SetView(ChartView* chartView) { view = chartView; }
  void SetTexts(const std::string& entryText, const std::string& exitText);
  const std::string& GetEntry() const { return entry; }
  const std::string& GetExit() const { return exit; }

  /// Both texts under their headings, as they are painted, in UTF-8.
  std::string ShownText() const;
  /// Paints both texts under their headings into a rectangle in logical units.
  void Draw(CDC* dc, const RECT& rect) const;

  std::vector<std::string*> Texts() override;
  bool EditText(const std::string& title) override;

 private:
  std::string entry;
  std::string exit;
  ChartView* view = nullptr;
};

}  // namespace morvane
