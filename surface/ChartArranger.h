#pragma once

#include <vector>

#include "drawing/Geometry.h"
#include "layout/LayoutGraph.h"
#include "surface/RouteLayer.h"

namespace morvane {

class ModelMgr;
class RectShape;
class Shape;

/// Lays out boxes of a chart, states, marks and notes, what runs between them, and the messages.
class ChartArranger {
 public:
  /// A box with what it stands in: another part by its index.
  struct Part {
    RectShape* shape = nullptr;
    int holder = LayoutBox::kOutermost;
  };

  explicit ChartArranger(ModelMgr& model) : model(model) {}

  /// Gives each part a new place and the size that its texts and its contents take, the outermost
  /// ones from a corner on, absolute model units; and lays the transitions at parts anew, along
  /// with `loose` ones that have no ends yet.
  void Arrange(const std::vector<Part>& parts, POINT corner,
               const std::vector<WantedRoute>& loose = {});

 private:
  LayoutGraph GraphOf(const std::vector<Part>& parts, const std::vector<WantedRoute>& routes) const;
  void AddLines(const std::vector<Part>& parts, LayoutGraph& graph) const;
  std::vector<WantedRoute> TakeRoutes(const std::vector<Part>& parts) const;
  void PutMessages(const std::vector<WantedRoute>& routes, const ChartNest& nest) const;

  ModelMgr& model;
};

/// The boxes that a chart has by now, each with what it stands in by its place.
std::vector<ChartArranger::Part> PartsOf(const ModelMgr& model);

}  // namespace morvane
