#include <array>
#include <map>

#include "tests/ui/Canvas.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

using Draw = std::function<void(CDC&)>;

constexpr std::array<POINT, 8> kDirections{POINT{1, 0}, {1, 1},   {0, 1},  {-1, 1},
                                           {-1, 0},     {-1, -1}, {0, -1}, {1, -1}};
constexpr std::array<double, 3> kScales{1, 1.5, 2};
constexpr int kDark = 100;
constexpr int kLight = 200;

constexpr RECT kBox{12, 12, 55, 45};
constexpr RECT kBoxFromItsFarCorner{55, 45, 12, 12};
constexpr SIZE kRounding{15, 15};
constexpr POINT kStart{12, 15};
constexpr POINT kEnd{55, 41};
constexpr std::array<POINT, 4> kZigzag{POINT{12, 12}, {55, 20}, {15, 30}, {50, 48}};

struct Primitive {
  const char* name;
  Draw draw;
};

void DrawLine(CDC& dc, POINT from, POINT to) {
  dc.MoveTo(from);
  dc.LineTo(to);
}

void DrawMask(CDC& dc) {
  dc.SelectBrush(CBrush::Solid(0));
  dc.FillMask({20, 20}, {8, 2, {0x99, 0x66}});
}

void DrawBoxWithAWidePen(CDC& dc) {
  dc.SelectPen({PenStyle::Solid, 3, 0});
  dc.Rectangle(kBox);
}

void SetZoom(CDC& dc, int zoom) {
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt({6, 6});
  dc.SetViewportExt({zoom, zoom});
}

/// One of each, all within 10, 10 to 60, 50.
const std::vector<Primitive> kPrimitives = {
    {"line", [](CDC& dc) { DrawLine(dc, kStart, kEnd); }},
    {"polyline", [](CDC& dc) { dc.Polyline(kZigzag); }},
    {"polygon", [](CDC& dc) { dc.Polygon(kZigzag); }},
    {"rectangle", [](CDC& dc) { dc.Rectangle(kBox); }},
    {"turned rectangle", [](CDC& dc) { dc.Rectangle(kBoxFromItsFarCorner); }},
    {"round rectangle", [](CDC& dc) { dc.RoundRect(kBox, kRounding); }},
    {"ellipse", [](CDC& dc) { dc.Ellipse(kBox); }},
    {"arc", [](CDC& dc) { dc.Arc(kBox, kEnd, kStart); }},
    {"whole arc", [](CDC& dc) { dc.Arc(kBox, kEnd, kEnd); }},
    {"fill", [](CDC& dc) { dc.FillSolidRect(kBox, 0x3060); }},
    {"wide pen", DrawBoxWithAWidePen},
    {"mask", DrawMask},
    {"text", [](CDC& dc) { dc.TextOut(kStart, "Mixed \xC3\xA4", nullptr); }},
};

}  // namespace

TEST(QtDCTest, LineLeavesOutItsLastPointInAllDirections) {
  for (const double scale : kScales) {
    for (const RasterOp op : {RasterOp::CopyPen, RasterOp::NotXorPen}) {
      for (const POINT d : kDirections) {
        SCOPED_TRACE(testing::Message() << d.x << "," << d.y << " at " << scale);
        Canvas canvas(50, 50, scale);
        canvas.Draw([&](CDC& dc) {
          dc.SetROP2(op);
          DrawLine(dc, {20, 20}, {20 + 10 * d.x, 20 + 10 * d.y});
        });
        EXPECT_LT(canvas.DarkestAtDevice(20, 20), kDark);
        EXPECT_LT(canvas.DarkestAtDevice(20 + 9 * d.x, 20 + 9 * d.y), kDark);
        EXPECT_GT(canvas.AtDevice(20 + 10 * d.x, 20 + 10 * d.y), kLight);
        EXPECT_GT(canvas.AtDevice(20 - d.x, 20 - d.y), kLight);
      }
    }
  }
}

TEST(QtDCTest, StraightLinesAreSharpAtAnyScale) {
  for (const double scale : kScales) {
    for (const int zoom : {2, 4, 6, 7, 13}) {
      Canvas canvas(100, 60, scale);
      canvas.Draw([zoom](CDC& dc) {
        SetZoom(dc, zoom);
        DrawLine(dc, {1, 5}, {40, 5});
        dc.Rectangle({3, 9, 37, 21});
      });
      const int x = static_cast<int>(10 * zoom * scale / 6);
      std::map<int, int> rows;
      for (int y = 0; y < canvas.Image().height(); ++y) ++rows[canvas.At(x, y)];
      EXPECT_EQ(rows.size(), 2U) << "black and white alone, at zoom " << zoom;
      EXPECT_EQ(rows[0], 3 * static_cast<int>(scale));
    }
  }
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
      DrawLine(dc, {-500, -300}, {700, 410});
      DrawLine(dc, {85, -20}, {3, 100});
    };
    whole.Draw(draw);
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
  for (const Primitive& primitive : kPrimitives) {
    SCOPED_TRACE(primitive.name);
    Canvas canvas(70, 60);
    const QRegion clip(0, 0, 25, 60);
    {
      QtDC dc(canvas.Image(), 1, canvas.Fonts(), &clip);
      primitive.draw(dc);
    }
    EXPECT_FALSE(canvas.Painted().isEmpty());
    EXPECT_LT(canvas.Painted().right(), 25);
  }
}

TEST(QtDCTest, DotsAndMasksCountDevicePixels) {
  Canvas canvas(60, 40, 2);
  canvas.Draw([](CDC& dc) {
    dc.SelectPen({PenStyle::Dot, 0, 0});
    DrawLine(dc, {0, 4}, {60, 4});
    SetZoom(dc, 12);
    dc.SelectBrush(CBrush::Solid(0));
    dc.FillMask({5, 7}, {4, 2, {0xA0, 0x50}});
  });
  for (int x = 0; x < 60; ++x) EXPECT_EQ(canvas.AtDevice(x, 4), x % 6 < 3 ? 0 : 255) << x;
  for (const int x : {0, 1, 2, 3}) {
    for (const int y : {0, 1}) {
      EXPECT_EQ(canvas.AtDevice(10 + x, 14 + y), (x + y) % 2 == 0 ? 0 : 255) << x << "," << y;
    }
  }
}

TEST(QtDCTest, WhatIsHugeShowsWhereItIsSeen) {
  static constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  static constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  static constexpr RECT huge{-1000000, -1000000, 1000000, 1000000};
  for (const Draw& draw : {Draw([](CDC& dc) {
                             DrawLine(dc, {low, 40}, {high, 40});
                           }),
                           Draw([](CDC& dc) { dc.Ellipse(huge); }),
                           Draw([](CDC& dc) { dc.RoundRect(huge, kRounding); })}) {
    Canvas canvas;
    canvas.Draw([&](CDC& dc) {
      dc.SelectBrush(CBrush::Solid(0));
      draw(dc);
    });
    for (const int x : {5, 95}) EXPECT_EQ(canvas.At(x, 40), 0);
  }
}

TEST(QtDCTest, TextIsMeasuredAlikeAtEveryZoom) {
  constexpr const char* text = "Measured gfjy \xC3\xA4";
  std::vector<std::int32_t> widths;
  for (const int zoom : {2, 5, 6, 13}) {
    Canvas canvas(600, 60);
    canvas.Draw([&](CDC& dc) {
      SetZoom(dc, zoom);
      dc.SelectFont(CFont::FromTenthsOfPoint(80, "Verdana"));
      widths.push_back(dc.GetTextExtent(text).cx);
      dc.TextOut({10, 3}, text, nullptr);
    });
    const QRect painted = canvas.Painted();
    EXPECT_NEAR(painted.right() + 1, (10 + widths.back()) * zoom / 6.0, 0.15 * zoom + 2);
    EXPECT_NEAR(painted.left(), 10 * zoom / 6.0, 0.3 * zoom + 1);
  }
  EXPECT_GT(widths[0], 50);
  EXPECT_EQ(widths, std::vector<std::int32_t>(4, widths[0]));
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

}  // namespace morvane
