#include <algorithm>

#include "drawing/qt/QtDC.h"
#include "platform/qt/QtPictures.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

TEST(QtPicturesTest, TooLargeAPictureIsNotMade) {
  QtPictures pictures;
  const auto fail = [](CDC&) { FAIL(); };
  for (const SIZE size : {SIZE{100'000, 100'000}, {1 << 25, 1}, {0, 10}}) {
    EXPECT_FALSE(pictures.MakePng(size, {}, fail)) << size.cx;
  }
  EXPECT_FALSE(pictures.MakePng({20'000, 20'000}, {.scale = 8}, fail));
  for (const SIZE size : {SIZE{19201, 10}, {10, -1}}) {
    EXPECT_FALSE(pictures.MakePdf(size, {}, fail));
  }
}

/// Slanted and curved, so that a seam would show.
void PaintRings(CDC& dc) {
  const CPen pen = dc.SelectPen({PenStyle::Solid, 3, RGB(200, 0, 0)});
  const CBrush brush = dc.SelectBrush(CBrush::Solid(RGB(220, 240, 255)));
  for (int at = 0; at < 900; at += 150) dc.Ellipse({10 + at, 10 + at, 210 + at, 250 + at});
  dc.MoveTo({1000, 0});
  dc.LineTo({0, 1100});
  dc.SelectBrush(brush);
  dc.SelectPen(pen);
}

TEST(QtPicturesTest, BandsHaveNoSeam) {
  QtPictures pictures;
  // Wide enough for several bands, and wider than the toolkit paints at once.
  for (const SIZE size : {SIZE{9000, 1100}, {31'000, 1000}}) {
    const auto png = pictures.MakePng(size, {.pixelsPerInch = 192}, PaintRings);
    ASSERT_TRUE(png);
    QImage got = QImage::fromData(QByteArray::fromStdString(*png), "PNG");
    ASSERT_EQ(got.size(), QSize(size.cx, size.cy));
    EXPECT_EQ(got.dotsPerMeterX(), 7559);
    got = got.copy(0, 0, 1100, size.cy).convertToFormat(QImage::Format_RGB32);
    QImage whole(got.size(), QImage::Format_RGB32);
    whole.fill(Qt::white);
    QtFontCache fonts;
    {
      QtDC dc(whole, 1, fonts);
      PaintRings(dc);
    }
    EXPECT_TRUE(got == whole) << size.cx;
    EXPECT_EQ(pictures.MakePng(size, {.pixelsPerInch = 192}, PaintRings), png);
  }
}

TEST(QtPicturesTest, PicturesAreScaledAndTransparentAndCanBeGivenUp) {
  QtPictures pictures;
  const struct {
    double scale;
    QSize size;
  } cases[] = {{1, {1100, 1100}}, {2, {2200, 2200}}, {0.1, {110, 110}}, {0.33, {363, 363}}};
  for (const auto& c : cases) {
    for (const bool transparent : {false, true}) {
      const auto png = pictures.MakePng({1100, 1100},
                                        {.scale = c.scale, .transparent = transparent}, PaintRings);
      const QImage image = QImage::fromData(QByteArray::fromStdString(png.value_or("")), "PNG");
      ASSERT_EQ(image.size(), c.size);
      const auto at = [&](double x, double y) { return image.pixelColor(QPointF(x, y).toPoint()); };
      EXPECT_EQ(at(110 * c.scale, 130 * c.scale), QColor(220, 240, 255)) << c.scale;
      EXPECT_EQ(at(1050 * c.scale, 500 * c.scale),
                transparent ? QColor(0, 0, 0, 0) : QColor(Qt::white));
    }
  }
  std::vector<double> parts;
  const auto giveUp = [&](double part) {
    parts.push_back(part);
    return part < 0.4;
  };
  EXPECT_FALSE(pictures.MakePng({9000, 1100}, {.progress = giveUp}, PaintRings));
  ASSERT_GT(parts.size(), 2U);
  EXPECT_TRUE(std::ranges::is_sorted(parts));
  EXPECT_EQ(parts.front(), 0);
}

}  // namespace

}  // namespace morvane
