#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// What a picture tells of itself besides what it shows, and how large it shows that. All texts are
/// valid UTF-8.
struct PictureInfo {
  /// The program, as the pictures name it that can.
  static constexpr const char* kCreator = "Morvane";

  /// A place in the picture that a reader may want to go to. Those that stand inside one follow it
  /// with a greater depth.
  struct Place {
    std::string name;
    POINT corner;  ///< its upper left corner, logical units from that of the picture
    int depth = 0;
  };

  std::string title;
  std::string author;
  double scale = 1;          ///< so many times as large as the logical units say
  bool transparent = false;  ///< nothing is behind what is drawn; white otherwise, where there is a
                             ///< ground at all
  std::vector<Place> outline;
  /// What an object is called; may be null.
  std::function<std::string(std::int32_t id)> nameOf;
};

}  // namespace morvane
