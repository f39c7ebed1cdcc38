#pragma once

#include <QByteArray>
#include <QImage>

#include "drawing/qt/QtText.h"
#include "platform/Pictures.h"
#include "platform/qt/PngEncoder.h"

namespace morvane {

/// Pictures and pages made by Qt. The same drawing gives the same bytes.
class QtPictures : public Pictures {
 public:
  /// Of a picture of pixels. No program shows more, and it takes a quarter of a minute to paint.
  static constexpr std::int64_t kMaxPixels = std::int64_t{1} << 32;

  std::unique_ptr<CDC> ReferenceDC() override;
  std::optional<std::string> MakePng(SIZE size, const PngForm& form, const Paint& paint) override;
  std::optional<std::string> MakePdf(SIZE size, const PictureInfo& info,
                                     const Paint& paint) override;

 private:
  /// Paints `rows` of a picture of `pixels`, from `top` on.
  void PaintBand(PngEncoder::Pixels& band, SIZE pixels, int top, int rows, const PngForm& form,
                 const Paint& paint);

  QtFontCache fonts;
};

}  // namespace morvane
