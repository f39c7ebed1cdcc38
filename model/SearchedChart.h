#pragma once

#include <functional>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

class ModelMgr;
class ModelProperties;
class Shape;

/// A chart whose texts are looked through, and what its view does meanwhile. Nothing is owned.
struct SearchedChart {
  ModelMgr& model;
  ModelProperties& properties;
  /// Follows each edit and each replacement that changed something.
  std::function<void()> onChanged = {};
  /// Selects objects and brings the first one into sight; gives where on the screen it shows.
  std::function<RECT(const std::vector<Shape*>& objects)> reveal = {};
  /// Lets the user edit the texts for the generators; true if they were taken over.
  std::function<bool()> editCodeProperties = {};
};

}  // namespace morvane
