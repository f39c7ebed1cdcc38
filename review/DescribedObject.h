#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// One thing that a chart stores of an object.
struct Fact {
  enum class Aspect {
    Name,
    Meaning,  ///< what it is tied to and stands in
    Text,
    Place,
    Route,
    Look
  };

  Aspect aspect = Aspect::Look;
  const char* label = "";  ///< in English
  std::string value;       ///< what is compared, bytes as the chart has them; empty for nothing
  std::string shown;       ///< what a reader sees in its place; empty if that is the value itself

  const std::string& Shown() const { return shown.empty() ? value : shown; }
  /// It tells of what the chart does or says, not of how it is drawn.
  bool HasMeaning() const { return aspect < Aspect::Place; }
};

/// An object of a chart as facts. Objects of one class have the same facts in the same order.
struct DescribedObject {
  std::int32_t id = 0;
  std::string keyword;         ///< of its record
  std::size_t position = 0;    ///< among the objects of the model text
  std::string name;            ///< as problems name it: GenericState 105 "Listen"
  std::string detail;          ///< what else a reader knows it by, in UTF-8; mostly empty
  bool holdsContents = false;  ///< others can stand in it
  /// The corners of a box, the points of a route, absolute model units.
  std::vector<POINT> outline;
  std::vector<Fact> facts;

  /// The name with the detail behind it.
  std::string Heading() const { return detail.empty() ? name : name + " (" + detail + ')'; }
  /// The box around the outline, absolute model units; it can have no width or height.
  RECT Box() const;
};

}  // namespace morvane
