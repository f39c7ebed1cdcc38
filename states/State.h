#pragma once

#include <string>

#include "model/ConnectableRectShape.h"

namespace morvane {

/// The named rectangular node of a chart.
class State : public ConnectableRectShape {
 public:
  State() = default;
  State(std::int32_t id, ChartView* view, const RECT& rect, const std::string& name);

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void OnCommand(unsigned id) override;
  /// Everywhere but on the handles of a selected state.
  bool YieldsToConnection(unsigned flags, POINT client) override;

  /// The border as it is painted, logical units. It stands a little inside the rectangle.
  virtual RECT GetPaintedBorder() const = 0;
  const std::string& GetName() const { return name; }
  /// The name, for who changes it from outside.
  std::string& NameText() { return name; }

 protected:
  Layer GetClassLayer() const override { return LAYER_STATE; }
  /// Fills the four anchors at the middle of each side.
  void RefreshMiddleAnchors();

  std::string name;
};

}  // namespace morvane
