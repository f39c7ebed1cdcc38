#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "platform/CMetaFileDC.h"
#include "tests/ui/Canvas.h"

namespace {

constexpr std::array<POINT, 8> kDirections{POINT{1, 0}, {1, 1},   {0, 1},  {-1, 1},
                                           {-1, 0},     {-1, -1}, {0, -1}, {1, -1}};
constexpr std::array<double, 3> kScales{1, 1.5, 2};
constexpr int kDark = 100;
constexpr int kLight = 200;

struct Primitive {
  const char* name;
  std::function<void(CDC&)> draw;
};

/// One of each, all within 10, 10 to 60, 50.
std::vector<Primitive> Primitives() {
  static const std::array<POINT, 4> zigzag{POINT{12, 12}, {55, 20}, {15, 30}, {50, 48}};
  return {
      {"line",
       [](CDC& dc) {
         dc.MoveTo({12, 15});
         dc.LineTo({55, 41});
       }},
      {"polyline", [](CDC& dc) { dc.Polyline(zigzag); }},
      {"polygon", [](CDC& dc) { dc.Polygon(zigzag); }},
      {"rectangle",
       [](CDC& dc) {
         dc.Rectangle({12, 12, 55, 45});
       }},
      {"round rectangle",
       [](CDC& dc) {
         dc.RoundRect({12, 12, 55, 45}, {15, 15});
       }},
      {"ellipse",
       [](CDC& dc) {
         dc.Ellipse({12, 12, 55, 45});
       }},
      {"arc",
       [](CDC& dc) {
         dc.Arc({12, 12, 55, 45}, {55, 30}, {12, 20});
       }},
      {"fill",
       [](CDC& dc) {
         dc.FillSolidRect({12, 12, 55, 45}, 0x3060);
       }},
      {"mask",
       [](CDC& dc) {
         dc.SelectBrush(CBrush::Solid(0));
         dc.FillMask({20, 20}, {8, 2, {0x99, 0x66}});
       }},
      {"text",
       [](CDC& dc) {
         dc.TextOut({12, 12}, "Mixed \xC3\xA4", nullptr);
       }},
  };
}

QImage Noise(const QImage& like) {
  QImage noise(like.size(), QImage::Format_RGB32);
  unsigned state = 12345;
  for (int y = 0; y < noise.height(); ++y) {
    for (int x = 0; x < noise.width(); ++x) {
      state = state * 1664525 + 1013904223;
      noise.setPixel(x, y, 0xFF000000 | (state >> 8));
    }
  }
  return noise;
}

}  // namespace

TEST(QtDCTest, LineLeavesOutItsLastPointInAllDirections) {
  for (const double scale : kScales) {
    for (const RasterOp op : {RasterOp::CopyPen, RasterOp::NotXorPen}) {
      for (const POINT d : kDirections) {
        SCOPED_TRACE(testing::Message() << d.x << "," << d.y << " at " << scale);
        Canvas canvas(50, 50, scale);
        {
          const auto dc = canvas.DC();
          dc->SetROP2(op);
          dc->MoveTo({20, 20});
          dc->LineTo({20 + 10 * d.x, 20 + 10 * d.y});
        }
        EXPECT_LT(canvas.DarkestAtDevice(20, 20), kDark);
        EXPECT_LT(canvas.DarkestAtDevice(20 + 9 * d.x, 20 + 9 * d.y), kDark);
        EXPECT_GT(canvas.AtDevice(20 + 10 * d.x, 20 + 10 * d.y), kLight);
        EXPECT_GT(canvas.AtDevice(20 - d.x, 20 - d.y), kLight);
      }
    }
  }
}

TEST(QtDCTest, ShapesLeaveRightAndBottomEdgeOut) {
  const RECT r{10, 12, 30, 26};
  const std::vector<Primitive> shapes = {
      {"rectangle", [&](CDC& dc) { dc.Rectangle(r); }},
      {"rectangle from the far corner",
       [](CDC& dc) {
         dc.Rectangle({30, 26, 10, 12});
       }},
      {"round rectangle",
       [&](CDC& dc) {
         dc.RoundRect(r, {8, 8});
       }},
      {"ellipse", [&](CDC& dc) { dc.Ellipse(r); }},
      {"arc",
       [&](CDC& dc) {
         dc.Arc(r, {30, 19}, {30, 19});
       }},
      {"fill", [&](CDC& dc) { dc.FillSolidRect(r, 0); }},
      {"wide pen",
       [&](CDC& dc) {
         dc.SelectPen({PenStyle::Solid, 3, 0});
         dc.Rectangle(r);
       }},
  };
  for (const double scale : {1.0, 2.0}) {
    for (const Primitive& shape : shapes) {
      SCOPED_TRACE(testing::Message() << shape.name << " at " << scale);
      Canvas canvas(50, 50, scale);
      shape.draw(*canvas.DC());
      const int s = static_cast<int>(scale);
      EXPECT_EQ(canvas.Painted(), QRect(10 * s, 12 * s, 20 * s, 14 * s));
    }
  }
}

TEST(QtDCTest, BrushFillsInsideAndHollowBrushLeavesItAlone) {
  for (const bool hollow : {false, true}) {
    for (const auto& draw : std::vector<std::function<void(CDC&)>>{
             [](CDC& dc) {
               dc.Rectangle({10, 10, 40, 40});
             },
             [](CDC& dc) {
               dc.RoundRect({10, 10, 40, 40}, {9, 9});
             },
             [](CDC& dc) {
               dc.Ellipse({10, 10, 40, 40});
             },
             [](CDC& dc) {
               dc.FillRect({10, 10, 40, 40}, dc.GetBrush());
             },
             [](CDC& dc) {
               const std::array<POINT, 3> corners{POINT{10, 10}, {45, 10}, {10, 70}};
               dc.Polygon(corners);
             }}) {
      Canvas canvas;
      canvas.Image().fill(QColor(10, 200, 30));
      {
        const auto dc = canvas.DC();
        dc->SelectBrush(hollow ? CBrush::Null() : CBrush::Solid(RGB(200, 10, 30)));
        draw(*dc);
      }
      const QRgb inside = canvas.Image().pixel(20, 20);
      EXPECT_EQ(inside, hollow ? qRgb(10, 200, 30) : qRgb(200, 10, 30));
    }
  }
}

TEST(QtDCTest, SecondDrawingUndoesTheFirst) {
  for (const double scale : kScales) {
    for (const PenStyle style : {PenStyle::Solid, PenStyle::Dot}) {
      for (const Primitive& primitive : Primitives()) {
        SCOPED_TRACE(testing::Message() << primitive.name << " at " << scale);
        Canvas canvas(70, 60, scale);
        const QImage before = Noise(canvas.Image());
        canvas.Image() = before.copy();
        const auto draw = [&] {
          const auto dc = canvas.DC();
          dc->SetROP2(RasterOp::NotXorPen);
          dc->SelectPen({style, 0, 0x404040});
          primitive.draw(*dc);
        };
        draw();
        EXPECT_NE(canvas.Image(), before);
        draw();
        EXPECT_EQ(canvas.Image(), before);
      }
    }
  }
}

TEST(QtDCTest, MetafileAtAnOffsetIsUndoneByPlayingItAgain) {
  Canvas reference;
  const auto measure = reference.DC();
  CMetaFileDC recorder(*measure);
  for (const Primitive& primitive : Primitives()) primitive.draw(recorder);
  const Metafile metafile = recorder.Close();
  Canvas canvas(120, 100, 1.5);
  const QImage before = Noise(canvas.Image());
  canvas.Image() = before.copy();
  const auto play = [&] {
    const auto dc = canvas.DC();
    dc->SetMapMode(MapMode::Isotropic);
    dc->SetWindowExt({6, 6});
    dc->SetViewportExt({7, 7});
    dc->SetViewportOrg(dc->GetViewportOrg() + POINT{23, 17});
    dc->SetROP2(RasterOp::NotXorPen);
    dc->PlayMetaFile(metafile);
  };
  play();
  EXPECT_NE(canvas.Image(), before);
  play();
  EXPECT_EQ(canvas.Image(), before);
}

TEST(QtDCTest, WhiteBrushInvertsNothing) {
  Canvas canvas;
  canvas.Image().fill(QColor(10, 200, 30));
  {
    const auto dc = canvas.DC();
    dc->SetROP2(RasterOp::NotXorPen);
    dc->Rectangle({10, 10, 40, 40});
  }
  EXPECT_EQ(canvas.Image().pixel(20, 20), qRgb(10, 200, 30));
  EXPECT_EQ(canvas.Image().pixel(10, 20), qRgb(~10 & 255, ~200 & 255, ~30 & 255));
}

TEST(QtDCTest, StraightLinesAreSharpAtAnyScale) {
  for (const double scale : kScales) {
    for (const int zoom : {2, 4, 6, 7, 13}) {
      Canvas canvas(100, 60, scale);
      {
        const auto dc = canvas.DC();
        dc->SetMapMode(MapMode::Isotropic);
        dc->SetWindowExt({6, 6});
        dc->SetViewportExt({zoom, zoom});
        dc->MoveTo({1, 5});
        dc->LineTo({40, 5});
        dc->Rectangle({3, 9, 37, 21});
      }
      const int hairline = static_cast<int>(scale);
      const int x = static_cast<int>(10 * zoom * scale / 6);
      int black = 0;
      for (int y = 0; y < canvas.Image().height(); ++y) {
        const int value = canvas.At(x, y);
        EXPECT_TRUE(value == 0 || value == 255) << value << " at zoom " << zoom;
        black += value == 0 ? 1 : 0;
      }
      EXPECT_EQ(black, 3 * hairline);
    }
  }
}

TEST(QtDCTest, DotsAreThreePixelsOnAndThreeOff) {
  Canvas canvas(60, 10, 2);
  {
    const auto dc = canvas.DC();
    dc->SelectPen({PenStyle::Dot, 0, 0});
    dc->MoveTo({0, 4});
    dc->LineTo({60, 4});
  }
  for (int x = 0; x < 60; ++x) EXPECT_EQ(canvas.AtDevice(x, 4), x % 6 < 3 ? 0 : 255) << x;
}

TEST(QtDCTest, PartOfALineHasThePixelsOfTheWhole) {
  for (const double scale : kScales) {
    Canvas whole(90, 90, scale);
    Canvas part(90, 90, scale);
    const QRect box(QPoint(30, 20) * scale, QSize(25, 40) * scale);
    const QRegion clip(box);
    const auto draw = [](CDC& dc) {
      dc.SetROP2(RasterOp::NotXorPen);
      dc.SelectPen({PenStyle::DashDot, 0, 0});
      dc.MoveTo({-500, -300});
      dc.LineTo({700, 410});
      dc.MoveTo({85, -20});
      dc.LineTo({3, 100});
    };
    draw(*whole.DC());
    {
      QtDC dc(part.Image(), scale, part.Fonts(), &clip);
      draw(dc);
    }
    EXPECT_EQ(part.Image().copy(box), whole.Image().copy(box));
    part.Image().fill(Qt::white);
    EXPECT_NE(part.Image().copy(box), whole.Image().copy(box));
  }
}

TEST(QtDCTest, ClipHoldsForEverything) {
  for (const Primitive& primitive : Primitives()) {
    SCOPED_TRACE(primitive.name);
    Canvas canvas(70, 60);
    const QRegion clip(0, 0, 25, 60);
    {
      QtDC dc(canvas.Image(), 1, canvas.Fonts(), &clip);
      primitive.draw(dc);
      EXPECT_TRUE(dc.Touched().contains(canvas.Painted()));
    }
    EXPECT_FALSE(canvas.Painted().isEmpty());
    EXPECT_LT(canvas.Painted().right(), 25);
  }
}

TEST(QtDCTest, ClipBoxIsInLogicalUnits) {
  Canvas canvas(100, 50, 2);
  const auto dc = canvas.DC();
  dc->SetMapMode(MapMode::Isotropic);
  dc->SetWindowExt({6, 6});
  dc->SetViewportExt({3, 3});
  dc->SetViewportOrg({-10, -20});
  const RECT clip = dc->GetClipBox();
  const RECT exact{20, 40, 220, 140};
  EXPECT_EQ(UnionRect(clip, exact), clip);
  EXPECT_EQ(UnionRect(clip, InflateRect(exact, 1)), InflateRect(exact, 1));
}

TEST(QtDCTest, AnyCoordinateIsSafe) {
  constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  const std::array<std::int32_t, 7> values{low, low / 3, -40000, 50, 40000, high / 3, high};
  Canvas canvas(100, 100, 1.5);
  for (const RasterOp op : {RasterOp::CopyPen, RasterOp::NotXorPen}) {
    for (const PenStyle style : {PenStyle::Solid, PenStyle::Dot}) {
      for (const int zoom : {2, 13}) {
        const auto dc = canvas.DC();
        dc->SetROP2(op);
        dc->SelectPen({style, zoom == 2 ? 0 : high, 0});
        dc->SetMapMode(MapMode::Isotropic);
        dc->SetWindowExt({6, 6});
        dc->SetViewportExt({zoom, zoom});
        for (const std::int32_t a : values) {
          for (const std::int32_t b : values) {
            const RECT r{a, b, b, 70};
            const std::array<POINT, 3> corners{POINT{a, b}, {b, 50}, {50, a}};
            dc->Polyline(corners);
            dc->Polygon(corners);
            dc->Rectangle(r);
            dc->RoundRect(r, {a, b});
            dc->Ellipse(r);
            dc->Arc(r, {a, 0}, {0, b});
            dc->FillSolidRect(r, 0);
            dc->FillMask({a, b}, {8, 1, {0xFF}});
            dc->TextOut({a, b}, "text", &r);
          }
        }
      }
    }
  }
  canvas.Image().fill(Qt::white);
  {
    const auto dc = canvas.DC();
    dc->SetROP2(RasterOp::NotXorPen);
    dc->MoveTo({low, 20});
    dc->LineTo({high, 20});
    dc->MoveTo({low + 1, low + 1});
    dc->LineTo({high, high});
    dc->SetROP2(RasterOp::CopyPen);
    dc->MoveTo({low, high});
    dc->LineTo({high, low});
  }
  EXPECT_EQ(canvas.AtDevice(5, 20), 0);
  EXPECT_EQ(canvas.AtDevice(95, 20), 0);
  EXPECT_EQ(canvas.AtDevice(50, 50), 0);
}

TEST(QtDCTest, HugeShapesAreFilledWhereTheyAreSeen) {
  for (const auto& draw : std::vector<std::function<void(CDC&)>>{
           [](CDC& dc) {
             dc.Ellipse({-1000000, -1000000, 1000000, 1000000});
           },
           [](CDC& dc) {
             dc.RoundRect({-1000000, -1000000, 1000000, 50}, {20, 20});
           },
           [](CDC& dc) {
             const std::array<POINT, 3> corners{
                 POINT{-1000000, -1000000}, {2000000, -1000000}, {-1000000, 2000000}};
             dc.Polygon(corners);
           }}) {
    Canvas canvas;
    {
      const auto dc = canvas.DC();
      dc->SelectBrush(CBrush::Solid(0x808080));
      draw(*dc);
    }
    EXPECT_EQ(canvas.At(40, 40), 0x80);
  }
}

TEST(QtDCTest, TextIsMeasuredAlikeAtEveryZoom) {
  const CFont font = CFont::FromTenthsOfPoint(80, "Verdana");
  std::vector<std::int32_t> widths;
  for (const int zoom : {2, 5, 6, 13}) {
    Canvas canvas(600, 60);
    {
      const auto dc = canvas.DC();
      dc->SetMapMode(MapMode::Isotropic);
      dc->SetWindowExt({6, 6});
      dc->SetViewportExt({zoom, zoom});
      dc->SelectFont(font);
      widths.push_back(dc->GetTextExtent("Measured gfjy \xC3\xA4").cx);
      dc->TextOut({10, 3}, "Measured gfjy \xC3\xA4", nullptr);
    }
    const QRect painted = canvas.Painted();
    EXPECT_NEAR(painted.right() + 1, (10 + widths.back()) * zoom / 6.0, 0.15 * zoom + 2);
    EXPECT_NEAR(painted.left(), 10 * zoom / 6.0, 0.3 * zoom + 1);
  }
  EXPECT_GT(widths[0], 50);
  EXPECT_EQ(widths, std::vector<std::int32_t>(4, widths[0]));
}

TEST(QtDCTest, FontHeightIsTheHeightOfTheLettersAndBoldIsWider) {
  Canvas canvas;
  const auto dc = canvas.DC();
  dc->SelectFont({"DejaVu Sans", -20, CFont::kNormalWeight});
  const TextMetrics metrics = dc->GetTextMetrics();
  EXPECT_EQ(metrics.ascent, 19);
  EXPECT_EQ(metrics.height, 24);
  const std::int32_t regular = dc->GetTextExtent("Width").cx;
  EXPECT_NEAR(dc->GetTextExtent("WidthWidth").cx, regular * 2, 1);
  dc->SelectFont({"DejaVu Sans", -20, CFont::kBoldWeight});
  EXPECT_GT(dc->GetTextExtent("Width").cx, regular);
}

TEST(QtDCTest, TextIsCutOffAtItsClip) {
  Canvas canvas;
  {
    const auto dc = canvas.DC();
    const RECT clip{20, 10, 45, 16};
    dc->TextOut({15, 8}, "A text that is too long", &clip);
  }
  EXPECT_TRUE(QRect(20, 10, 25, 6).contains(canvas.Painted()));
  EXPECT_EQ(canvas.Painted().right(), 44);
}

TEST(QtDCTest, ALongLineEndsWhereItIsMeasured) {
  // Of letters that are laid out in pieces, with blanks in front of the last one.
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "\xC3\xA4";
  text += "     \xC3\xA4";
  Canvas canvas;
  {
    const auto dc = canvas.DC();
    dc->TextOut({80 - dc->GetTextExtent(text).cx, 8}, text, nullptr);
  }
  EXPECT_NEAR(canvas.Painted().right(), 78, 2);
  EXPECT_LT(canvas.Painted().left(), 8) << "the letters before the blanks";
}

TEST(QtDCTest, MaskHasOneDevicePixelToTheBit) {
  Canvas canvas(40, 40, 2);
  {
    const auto dc = canvas.DC();
    dc->SetMapMode(MapMode::Isotropic);
    dc->SetWindowExt({6, 6});
    dc->SetViewportExt({12, 12});
    dc->SelectBrush(CBrush::Solid(0));
    dc->FillMask({5, 7}, {4, 2, {0xA0, 0x50}});
  }
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 4; ++x) {
      EXPECT_EQ(canvas.AtDevice(10 + x, 14 + y), (x + y) % 2 == 0 ? 0 : 255) << x << "," << y;
    }
  }
}
