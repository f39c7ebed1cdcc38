#include "drawing/SvgDC.h"
#include "drawing/TextCodec.h"
#include "drawing/TextLayout.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

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

TEST(SvgDC, NamesThePictureAndItsObjects) {
  NullDC reference;
  PictureInfo info;
  info.title = "Lift & Co";
  info.nameOf = [](std::int32_t id) { return "Object <" + std::to_string(id) + ">"; };
  SvgDC dc(reference, {60, 40}, info);
  for (const int id : {7, -3, 7}) {
    dc.BeginObject(id);
    dc.MoveTo({1, 2});
    dc.LineTo({10, 2});
    dc.EndObject();
  }
  const std::string svg = dc.Close();
  std::size_t at = 0;
  for (const char* part :
       {"viewBox=\"0 0 60 40\"", "<title>Lift &amp; Co</title>", "<dc:title>Lift &amp; Co<",
        "<xmp:CreatorTool>Morvane<", "<g id=\"object7\">\n<title>Object &lt;7&gt;</title>\n<path",
        "</g>\n<g id=\"object-3\">\n", "</g>\n<g>\n<title>", "</g>\n</svg>"}) {
    at = svg.find(part, at);
    ASSERT_NE(at, std::string::npos) << part << " in " << svg;
  }
  EXPECT_EQ(svg.find("dc:creator"), std::string::npos) << "nobody is known";
}

}  // namespace

}  // namespace morvane
