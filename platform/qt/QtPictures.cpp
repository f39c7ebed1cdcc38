#include "platform/qt/QtPictures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "drawing/qt/QtDC.h"
#include "platform/qt/PdfFile.h"

namespace morvane {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr int kPixelBytes = 4;
/// A band is small enough to stay near the processor, and not so small that objects are looked
/// through too often.
constexpr int kBandPixels = 1 << 21;
constexpr int kMostRows = 512;
/// Rows around a band that are painted with it: the toolkit smooths a line a little differently
/// where its picture ends.
constexpr int kSpareRows = 4;
/// As wide as the toolkit can paint at once, with room to spare.
constexpr int kMostColumns = 30000;
/// Up to this scale the picture is painted so many times larger and made smaller again: the
/// thinnest line that a context paints is a pixel wide, which would be too heavy.
constexpr double kSmallScale = 0.5;
constexpr int kFineness = 3;
constexpr double kMaxPixelSide = 1 << 24;
/// What a product is off by rounding makes no pixel more.
constexpr double kTinyPart = 1e-6;

/// A context on a picture of its own.
class ReferenceContext : public QtDC {
 public:
  ReferenceContext(std::unique_ptr<QImage> image, QtFontCache& fonts)
      : QtDC(*image, 1, fonts), image(std::move(image)) {}

 private:
  std::unique_ptr<QImage> image;
};

/// The size of a picture in pixels; nothing if there is no such picture.
std::optional<SIZE> PixelsOf(SIZE size, double scale) {
  if (size.cx <= 0 || size.cy <= 0) return std::nullopt;
  const double width = std::ceil(size.cx * scale - kTinyPart);
  const double height = std::ceil(size.cy * scale - kTinyPart);
  if (width > kMaxPixelSide || height > kMaxPixelSide) return std::nullopt;
  if (width * height > static_cast<double>(QtPictures::kMaxPixels)) return std::nullopt;
  return SIZE{std::max(1, static_cast<std::int32_t>(width)),
              std::max(1, static_cast<std::int32_t>(height))};
}

/// Both have the same size.
void CopyPixels(const QImage& image, QImage& to) {
  const QImage from = image.convertToFormat(to.format());
  for (int y = 0; y < to.height(); ++y) {
    std::copy_n(from.constScanLine(y), qsizetype{to.width()} * kPixelBytes, to.scanLine(y));
  }
}

}  // namespace

std::unique_ptr<CDC> QtPictures::ReferenceDC() {
  auto image = std::make_unique<QImage>(1, 1, QImage::Format_RGB32);
  return std::make_unique<ReferenceContext>(std::move(image), fonts);
}

void QtPictures::PaintBand(PngEncoder::Pixels& band, SIZE pixels, int top, int rows,
                           const PngForm& form, const Paint& paint) {
  const std::uint32_t ground = form.transparent ? 0 : kWhite;
  band.assign(static_cast<std::size_t>(pixels.cx) * static_cast<std::size_t>(rows), ground);
  const auto format = form.transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  const int fineness = form.scale > kSmallScale ? 1 : kFineness;
  const int mostColumns = kMostColumns / fineness;
  for (int left = 0; left < pixels.cx; left += mostColumns) {
    QImage part(reinterpret_cast<uchar*>(band.data() + left),
                std::min(mostColumns, pixels.cx - left), rows, qsizetype{pixels.cx} * kPixelBytes,
                format);
    if (fineness == 1) {
      QtDC dc(part, QPoint(left, top), form.scale, fonts);
      paint(dc);
      continue;
    }
    QImage fine(part.size() * fineness, format);
    fine.fill(ground);
    {
      QtDC dc(fine, QPoint(left, top) * fineness, form.scale * fineness, fonts);
      paint(dc);
    }
    CopyPixels(fine.scaled(part.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation), part);
  }
}

std::optional<std::string> QtPictures::MakePng(SIZE size, const PngForm& form, const Paint& paint) {
  const auto pixels = PixelsOf(size, form.scale);
  if (!pixels) return std::nullopt;
  PngEncoder encoder({*pixels, form.transparent, form.pixelsPerInch});
  const int bandRows = std::clamp(kBandPixels / pixels->cx, 1, kMostRows);
  PngEncoder::Pixels band;
  for (int top = 0; top < pixels->cy; top += bandRows) {
    if (form.progress && !form.progress(1.0 * top / pixels->cy)) return std::nullopt;
    const int rows = std::min(bandRows, pixels->cy - top);
    const int above = std::min(kSpareRows, top);
    PaintBand(band, *pixels, top - above, above + rows + kSpareRows, form, paint);
    band = encoder.Add(std::move(band), above, rows);
  }
  return encoder.Finish();
}

std::optional<std::string> QtPictures::MakePdf(SIZE size, const PictureInfo& info,
                                               const Paint& paint) {
  return PdfFile::Make(size, info, paint, *ReferenceDC(), fonts);
}

}  // namespace morvane
