#pragma once

#include <cstdint>
#include <optional>

namespace morvane {

/// What a user may choose about a picture.
struct PictureOptions {
  static constexpr double kLeastScale = 0.1;
  static constexpr double kMostScale = 8;
  static constexpr std::int32_t kMostMargin = 1000;

  double scale = 1;            ///< of the normal size
  double pixelsPerInch = 96;   ///< of a picture of pixels: how large it is shown and printed
  bool transparent = false;    ///< nothing is behind what is drawn; white otherwise
  bool selectionOnly = false;  ///< only the selected objects, cut out
  /// Around what is drawn, logical units; without one the picture begins at the chart's origin.
  std::optional<std::int32_t> margin = std::nullopt;
};

}  // namespace morvane
