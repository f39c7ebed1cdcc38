#include <map>

#include "tests/ui/Canvas.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

using Draw = std::function<void(CDC&)>;

void DrawLine(CDC& dc, POINT from, POINT to) {
  dc.MoveTo(from);
  dc.LineTo(to);
}

void SetZoom(CDC& dc, int zoom) {
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt({6, 6});
  dc.SetViewportExt({zoom, zoom});
}

}  // namespace

TEST(QtDCTest, StraightLinesAreSharpAtAnyScale) {
  for (const double scale : {1.0, 1.5, 2.0}) {
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

TEST(QtDCTest, WhatIsHugeShowsWhereItIsSeen) {
  static constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  static constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  static constexpr RECT huge{-1000000, -1000000, 1000000, 1000000};
  for (const Draw& draw : {Draw([](CDC& dc) {
                             DrawLine(dc, {low, 40}, {high, 40});
                           }),
                           Draw([](CDC& dc) { dc.Ellipse(huge); }), Draw([](CDC& dc) {
                             dc.RoundRect(huge, {15, 15});
                           })}) {
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

TEST(QtDCTest, ALineIsPartedWhereItTurns) {
  const struct {
    std::string line;
    std::vector<std::string_view> text;     // in the order of the text
    std::vector<std::string_view> painted;  // from left to right
  } cases[] = {{"plain \u00E9", {"plain \u00E9"}, {"plain \u00E9"}},
               {"t: \u05D0\u05D1 10 \u05D2.",
                {"t: ", "\u05D0\u05D1 ", "10", " \u05D2", "."},
                {"t: ", " \u05D2", "10", "\u05D0\u05D1 ", "."}},
               {"\u0644\u0627 (coin) \u062B\u0645.",
                {"\u0644\u0627 (", "coin", ") \u062B\u0645."},
                {") \u062B\u0645.", "coin", "\u0644\u0627 ("}},
               // Numbers of Arabic behind Latin letters belong to what follows.
               {"ab \u0661\u0662 \u05D0\u05D1",
                {"ab ", "\u0661\u0662", " \u05D0\u05D1"},
                {"ab ", " \u05D0\u05D1", "\u0661\u0662"}},
               {"\u200Fab \u05D0\u05B8", {"ab", " \u05D0\u05B8"}, {" \u05D0\u05B8", "ab"}}};
  Canvas canvas;
  const auto dc = canvas.DC();
  for (const auto& c : cases) {
    std::vector<TextRun> runs = dc->GetTextRuns(c.line);
    std::vector<std::string_view> texts;
    for (const TextRun& run : runs) texts.push_back(run.text);
    EXPECT_EQ(texts, c.text);
    std::ranges::sort(runs, {}, &TextRun::left);
    texts.clear();
    double left = 0;
    for (const TextRun& run : runs) {
      texts.push_back(run.text);
      EXPECT_NEAR(run.left, left, 0.1) << c.line;
      left += run.width;
    }
    EXPECT_EQ(texts, c.painted);
    EXPECT_NEAR(left, dc->GetTextExtent(c.line).cx, 1) << c.line;
  }
}

}  // namespace morvane
