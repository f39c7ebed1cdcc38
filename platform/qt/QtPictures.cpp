#include "platform/qt/QtPictures.h"

#include <algorithm>
#include <span>
#include <unordered_set>

#include <QBuffer>
#include <QHash>
#include <QImageWriter>

#include "drawing/qt/QtDC.h"
#include "platform/qt/PdfFile.h"

namespace morvane {

namespace {

constexpr int kDotsPerMetre = 3780;  // 96 to the inch
constexpr std::size_t kPaletteSize = 256;
constexpr int kFastCompression = 30;  // of 100

/// A context on a picture of its own.
class ReferenceContext : public QtDC {
 public:
  ReferenceContext(std::unique_ptr<QImage> image, QtFontCache& fonts)
      : QtDC(*image, 1, fonts), image(std::move(image)) {}

 private:
  std::unique_ptr<QImage> image;
};

std::span<const QRgb> RowOf(const QImage& image, int y) {
  return {reinterpret_cast<const QRgb*>(image.constScanLine(y)),
          static_cast<std::size_t>(image.width())};
}

/// Most rows of a chart are like the one above them, which is seen at a glance.
bool IsLikeFormer(const QImage& image, int y) {
  return y > 0 && std::ranges::equal(RowOf(image, y), RowOf(image, y - 1));
}

/// The colours of a picture in the order of their first pixel; empty if there are too many for a
/// palette.
QList<QRgb> PaletteOf(const QImage& image) {
  QList<QRgb> colours;
  std::unordered_set<QRgb> seen;
  QRgb last = 0;
  for (int y = 0; y < image.height(); ++y) {
    if (IsLikeFormer(image, y)) continue;
    for (const QRgb colour : RowOf(image, y)) {
      if (colour == last) continue;
      last = colour;
      if (!seen.insert(colour).second) continue;
      if (seen.size() > kPaletteSize) return {};
      colours << colour;
    }
  }
  return colours;
}

QImage ToPalette(const QImage& image, const QList<QRgb>& colours) {
  QHash<QRgb, uchar> indices;
  for (qsizetype i = 0; i < colours.size(); ++i) indices.insert(colours[i], static_cast<uchar>(i));
  QImage result(image.size(), QImage::Format_Indexed8);
  if (result.isNull()) return image;
  result.setColorTable(colours);
  QRgb last = colours.first();
  uchar index = 0;
  for (int y = 0; y < image.height(); ++y) {
    uchar* to = result.scanLine(y);
    if (IsLikeFormer(image, y)) {
      std::copy_n(result.constScanLine(y - 1), image.width(), to);
      continue;
    }
    for (const QRgb colour : RowOf(image, y)) {
      if (colour != last) index = indices.value(last = colour);
      *to++ = index;
    }
  }
  return result;
}

}  // namespace

std::unique_ptr<CDC> QtPictures::ReferenceDC() {
  auto image = std::make_unique<QImage>(1, 1, QImage::Format_RGB32);
  return std::make_unique<ReferenceContext>(std::move(image), fonts);
}

std::optional<std::string> QtPictures::MakePng(SIZE size, const Paint& paint) {
  if (size.cx <= 0 || size.cy <= 0 || size.cx > kMaxSide || size.cy > kMaxSide) return std::nullopt;
  if (std::int64_t{size.cx} * size.cy > kMaxPixels) return std::nullopt;
  QImage image(size.cx, size.cy, QImage::Format_RGB32);
  if (image.isNull()) return std::nullopt;
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);
  image.fill(Qt::white);
  {
    QtDC dc(image, 1, fonts);
    paint(dc);
  }
  const QList<QRgb> palette = PaletteOf(image);
  if (!palette.isEmpty()) {
    image = ToPalette(image, palette);
    image.setDotsPerMeterX(kDotsPerMetre);
    image.setDotsPerMeterY(kDotsPerMetre);
  }
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "png");
  writer.setCompression(kFastCompression);
  if (!writer.write(image)) return std::nullopt;
  return buffer.data().toStdString();
}

std::optional<std::string> QtPictures::MakePdf(SIZE size, const PictureInfo& info,
                                               const Paint& paint) {
  return PdfFile::Make(size, info, paint, *ReferenceDC(), fonts);
}

}  // namespace morvane
