#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "drawing/Geometry.h"
#include "platform/Service.h"

namespace morvane {

class CDC;
struct PictureInfo;

/// Makes pictures with no window. The default service measures roughly and can make none.
class Pictures {
 public:
  using Paint = std::function<void(CDC&)>;

  virtual ~Pictures() = default;
  /// A context of 96 pixels to the inch that measures text and paints nowhere.
  virtual std::unique_ptr<CDC> ReferenceDC() = 0;
  /// A PNG of `size` pixels, white behind what `paint` draws at one pixel to the logical unit.
  /// Nothing if the picture doesn't fit into memory.
  virtual std::optional<std::string> MakePng(SIZE size, const Paint& paint) = 0;
  /// A PDF of one page of `size` logical units, 96 to the inch, with what `info` tells of it.
  /// Nothing if no page is so large.
  virtual std::optional<std::string> MakePdf(SIZE size, const PictureInfo& info,
                                             const Paint& paint) = 0;
  static Pictures& Default();
};

}  // namespace morvane
