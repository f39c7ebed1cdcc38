#pragma once

#include "drawing/Geometry.h"
#include "states/TextHandler.h"

namespace morvane {

class CDC;
class ChartView;
class ModelStream;

/// The three texts of a message: what triggers the transition, under which condition, and what is
/// done.
class EventEditorBox : public TextHandler {
 public:
  void SetView(ChartView* chartView) { view = chartView; }
  const std::string& GetEvent() const { return event; }
  const std::string& GetGuard() const { return guard; }
  const std::string& GetEffect() const { return effect; }
  void SetTexts(std::string newEvent, std::string newGuard, std::string newEffect);

  void Write(ModelStream& stream) const;
  void Read(ModelStream& stream);
  /// Paints the joined texts into a rectangle in logical units.
  void Draw(CDC* dc, const RECT* rect) const;

  std::vector<std::string*> Texts() override;
  bool EditText(const std::string& title) override;

 private:
  std::string event;
  std::string guard;
  std::string effect;
  ChartView* view = nullptr;
};

}  // namespace morvane
