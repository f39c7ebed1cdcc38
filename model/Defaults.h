#pragma once

#include <cstdint>
#include <string>

#include "drawing/Geometry.h"

namespace morvane {

/// The process-wide store of what new objects and new views take. Nothing in it reaches an object
/// that exists already.
struct Defaults {
  /// The store; the first call loads it from the profile.
  static Defaults& Instance();

  /// Reads all values from the profile, each with its default.
  void Load();
  /// Writes all values to the profile.
  void Save() const;

  std::string StateName;
  std::int32_t StateAnchor = 0;
  std::string Entry;
  std::string Exit;
  std::int32_t StateBgTransparent = 0;
  std::int32_t MesgAnchor = 0;
  std::int32_t MesgBorder = 0;  ///< 1 means that a new message has no border
  std::int32_t MesgBgTransparent = 0;
  std::int32_t ShowGrid = 0;
  COLORREF StateBgColor = 0;
  COLORREF MesgBorderColor = 0;
  COLORREF MesgBgColor = 0;
  std::int32_t LineColor = 0;  ///< index into `kLineColours`
  std::int32_t LineStyle = 0;  ///< index into `kLineStyles`
  std::string FontName;
  std::int32_t FontSize = 0;  ///< tenths of a point
  COLORREF FontColor = 0;
};

}  // namespace morvane
