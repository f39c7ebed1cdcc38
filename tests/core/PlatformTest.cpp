#include <array>

#include "drawing/CRgn.h"
#include "drawing/Mapping.h"
#include "drawing/SvgDC.h"
#include "drawing/TextCodec.h"
#include "drawing/TextLayout.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

constexpr int kLow = std::numeric_limits<int>::min();
constexpr int kHigh = std::numeric_limits<int>::max();

TEST(Mapping, ScalesUniformly) {
  Mapping mapping;
  mapping.SetMode(MapMode::Isotropic);
  mapping.SetWindowExt({9000, 9000});
  mapping.SetViewportExt({10500, 10500});
  mapping.SetViewportOrg({-14, 7});
  EXPECT_EQ(mapping.ToDevice(POINT{6, 60}), (POINT{-7, 77}));
  EXPECT_EQ(mapping.ToLogical(POINT{-7, 77}), (POINT{6, 60}));
  EXPECT_EQ(mapping.ToDevice(POINT{kHigh, kLow}), (POINT{kHigh, kLow}));
  // The tighter direction decides.
  mapping.SetWindowExt({992, 1403});
  mapping.SetViewportExt({4960, 7016});
  EXPECT_EQ(mapping.ViewportExt(), (SIZE{4960, 7015}));
}

TEST(CRgn, PolygonsAndRectangles) {
  CRgn region = CRgn::FromPolygon(std::array{POINT{0, 0}, POINT{10, 0}, POINT{0, 10}});
  region.Add(CRgn::FromRect({20, 0, 30, 5}));
  for (const POINT p : {POINT{0, 0}, {9, 0}, {5, 4}, {0, 9}, {20, 0}, {29, 4}}) {
    EXPECT_TRUE(region.PtInRegion(p)) << p.x << ' ' << p.y;
  }
  for (const POINT p : {POINT{10, 0}, {5, 6}, {0, 10}, {30, 4}, {15, 2}, {-1, 0}}) {
    EXPECT_FALSE(region.PtInRegion(p)) << p.x << ' ' << p.y;
  }
  EXPECT_EQ(region.GetBox(), (RECT{0, 0, 30, 10}));
  // The whole range of coordinates.
  const std::array huge{POINT{kLow, kLow}, POINT{kHigh, kLow}, POINT{kLow, kHigh}};
  EXPECT_TRUE(CRgn::FromPolygon(huge).PtInRegion({-5, -5}));
}

TEST(TextLayout, BreaksAtWordsAndLineBreaks) {
  const struct {
    std::string text;
    int width;
    std::vector<std::string_view> lines;
    std::size_t most = 99;
  } cases[] = {{"one two three", 7, {"one two", "three"}},
               {"one two three", 6, {"one", "two", "three"}},
               {"a\r\nb\nc\rd", 9, {"a", "b", "c", "d"}},
               {"a\r\n\r\nb", 9, {"a", "", "b"}},
               {"unbreakable is wide", 4, {"unbreakable", "is", "wide"}},
               {"  indented", 20, {"  indented"}},
               {"", 9, {}},
               {"a\nb\nc\nd", 9, {"a", "b"}, 2}};
  const auto widthOf = [](std::string_view text) { return static_cast<std::int32_t>(text.size()); };
  for (const auto& c : cases) {
    EXPECT_EQ(TextLayout(widthOf, c.width, true).Break(c.text, c.most), c.lines) << c.text;
  }
  EXPECT_EQ(TextLayout(widthOf, 9, true).Break(std::string(50'000'000, 'x'), 99).size(), 1U);
}

TEST(CDC, DrawTextSetsCentresAndCuts) {
  NullDC reference;
  CMetaFileDC dc(reference);
  CFont font;
  font.height = -10;  // five to the letter, a line of twelve
  dc.SelectFont(font);
  RECT area{100, 50, 130, 80};
  EXPECT_EQ(dc.DrawText("ab cd ef", area, DT_CENTER | DT_WORDBREAK), 24);
  RECT measured = area;
  EXPECT_EQ(dc.DrawText("ab cd ef", measured, DT_WORDBREAK | DT_CALCRECT), 24);
  EXPECT_EQ(measured, (RECT{100, 50, 125, 74}));
  const Metafile recorded = dc.Close();
  ASSERT_EQ(recorded.records.size(), 2U);
  EXPECT_EQ(recorded.records[0].text, "ab cd");
  EXPECT_EQ(recorded.records[0].points[0], (POINT{102, 50}));
  EXPECT_EQ(recorded.records[1].text, "ef");
  EXPECT_EQ(recorded.records[1].points[0], (POINT{110, 62}));
  EXPECT_EQ(recorded.records[1].rect, area);
  // No more lines than fit are set, however long the text is.
  RECT small{0, 0, 30, 20};
  std::string endless;
  for (int i = 0; i < 100'000; ++i) endless += "x\r\n";
  dc.DrawText(endless, small, DT_WORDBREAK);
  EXPECT_LE(dc.Close().records.size(), 3U);
}

TEST(TextCodec, TakesWhatIsNoUtf8AsWindows1252) {
  EXPECT_EQ(ToUtf8("gr\xC3\xBC\xC3\x9F"), "gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(ToUtf8("gr\xFC\xDF\x80"), "gr\xC3\xBC\xC3\x9F\xE2\x82\xAC");
  for (const char* invalid : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"}) {
    EXPECT_FALSE(IsValidUtf8(invalid));
    EXPECT_TRUE(IsValidUtf8(ToUtf8(invalid)));
  }
  EXPECT_EQ(Utf8Prefix("a\xE2\x82\xAC", 3), "a");
}

TEST(SvgDC, WritesTextAsTextAndJoinsLines) {
  NullDC reference;
  SvgDC dc(reference, {60, 40});
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Dot}) {
    dc.SelectPen({style, 0, 0x0000FF});
    dc.MoveTo({1, 2});
    dc.LineTo({10, 2});
    dc.LineTo({10, 20});
  }
  const RECT clip{0, 0, 10, 10};
  dc.TextOut({2, 3}, "a<b & \"c\"\x01", &clip);
  const std::string svg = dc.Close();
  for (const char* part :
       {"<path d=\"M1.5,2.5L10.5,2.5L10.5,20.5\"",
        // Each line begins its dashes anew, as on the screen.
        "M1.5,2.5L10.5,2.5M10.5,2.5L10.5,20.5", "stroke=\"#ff0000\" stroke-dasharray=\"3,3\"",
        ">a&lt;b &amp; &quot;c&quot; </text>", "clip-path=\"url(#c1)\"",
        "<clipPath id=\"c1\"><rect x=\"0\" y=\"0\" width=\"10\" height=\"10\"/>"}) {
    EXPECT_NE(svg.find(part), std::string::npos) << part << " in " << svg;
  }
}

}  // namespace

}  // namespace morvane
