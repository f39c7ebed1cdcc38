#pragma once

#include "states/EndableState.h"

namespace morvane {

/// The mark where a chart ends: a black disc in a ring.
class FinalState : public EndableState {
 public:
  FinalState() = default;
  FinalState(std::int32_t id, ChartView* view, const RECT& rect);

  /// The rectangle of a new mark at the origin, model units.
  static constexpr RECT DefaultRect() { return {0, 0, 4, 4}; }

  void Draw(CDC* dc) override;
  RECT GetPaintedBorder() const override;
  const std::string& GetTypeName() const override;
  void OnRectChanged(const RECT& old, bool sized) override;
  void RefreshAnchors() override;
};

}  // namespace morvane
