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

  /// Is told how much of a picture is done, 0 to 1; false gives it up.
  using Progress = std::function<bool(double)>;
  struct PngForm {
    double scale = 1;           ///< pixels to the logical unit
    double pixelsPerInch = 96;  ///< how large other programs show or print the picture
    bool transparent = false;   ///< nothing is behind what is painted; white otherwise
    Progress progress = nullptr;
  };

  virtual ~Pictures() = default;
  /// A context of 96 pixels to the inch that measures text and paints nowhere.
  virtual std::unique_ptr<CDC> ReferenceDC() = 0;
  /// A PNG of what `paint` draws on `size` logical units. It is painted in bands from above, with a
  /// call of `paint` each. Nothing if no picture is so large, or if it was given up.
  virtual std::optional<std::string> MakePng(SIZE size, const PngForm& form,
                                             const Paint& paint) = 0;
  /// A PDF of one page of `size` logical units, 96 to the inch, with what `info` tells of it.
  /// Nothing if no page is so large.
  virtual std::optional<std::string> MakePdf(SIZE size, const PictureInfo& info,
                                             const Paint& paint) = 0;
  static Pictures& Default();
};

}  // namespace morvane
