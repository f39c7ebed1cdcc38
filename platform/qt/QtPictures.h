#pragma once

#include <QByteArray>
#include <QImage>

#include "drawing/qt/QtText.h"
#include "platform/Pictures.h"

namespace morvane {

/// Pictures and pages made by Qt. The same drawing gives the same bytes.
class QtPictures : public Pictures {
 public:
  static constexpr std::int32_t kMaxSide = 32767;
  static constexpr std::int64_t kMaxPixels = std::int64_t{1} << 28;

  std::unique_ptr<CDC> ReferenceDC() override;
  std::optional<std::string> MakePng(SIZE size, const Paint& paint) override;
  std::optional<std::string> MakePdf(SIZE size, const PictureInfo& info,
                                     const Paint& paint) override;

 private:
  QtFontCache fonts;
};

}  // namespace morvane
