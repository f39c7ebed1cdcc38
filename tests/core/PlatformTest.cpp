#include <array>

#include "platform/CRgn.h"
#include "platform/CSvgDC.h"
#include "platform/Mapping.h"
#include "platform/RecentFiles.h"
#include "platform/TextCodec.h"
#include "platform/TextLayout.h"
#include "resources/InstallFolder.h"
#include "tests/support/ChartTest.h"

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
  const std::array<POINT, 3> triangle{POINT{0, 0}, POINT{10, 0}, POINT{0, 10}};
  CRgn region = CRgn::FromPolygon(triangle);
  region.Add(CRgn::FromRect({20, 0, 30, 5}));
  const struct {
    POINT p;
    bool inside;
  } cases[] = {{{0, 0}, true},  {{9, 0}, true},   {{10, 0}, false}, {{5, 4}, true},
               {{5, 6}, false}, {{0, 9}, true},   {{0, 10}, false}, {{20, 0}, true},
               {{29, 4}, true}, {{30, 4}, false}, {{15, 2}, false}, {{-1, 0}, false}};
  for (const auto& c : cases) EXPECT_EQ(region.PtInRegion(c.p), c.inside) << c.p.x << ' ' << c.p.y;
  EXPECT_EQ(region.GetBox(), (RECT{0, 0, 30, 10}));
  // The whole range of coordinates.
  const std::array<POINT, 3> huge{POINT{kLow, kLow}, POINT{kHigh, kLow}, POINT{kLow, kHigh}};
  EXPECT_TRUE(CRgn::FromPolygon(huge).PtInRegion({-5, -5}));
}

std::vector<std::string> Broken(std::string_view text, int width, std::size_t maxLines = 99) {
  const TextLayout layout(
      [](std::string_view piece) { return static_cast<std::int32_t>(piece.size()); }, width, true);
  std::vector<std::string> lines;
  for (const std::string_view line : layout.Break(text, maxLines)) lines.emplace_back(line);
  return lines;
}

TEST(TextLayout, BreaksAtWordsAndLineBreaks) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(Broken("one two three", 7), (Lines{"one two", "three"}));
  EXPECT_EQ(Broken("one two three", 6), (Lines{"one", "two", "three"}));
  EXPECT_EQ(Broken("a\r\nb\nc\rd", 9), (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(Broken("a\r\n\r\nb", 9), (Lines{"a", "", "b"}));
  EXPECT_EQ(Broken("unbreakable is wide", 4), (Lines{"unbreakable", "is", "wide"}));
  EXPECT_EQ(Broken("  indented", 20), (Lines{"  indented"}));
  EXPECT_EQ(Broken("", 9), Lines{});
  EXPECT_EQ(Broken("a\nb\nc\nd", 9, 2), (Lines{"a", "b"}));
  EXPECT_EQ(Broken(std::string(50'000'000, 'x'), 10).size(), 1U);
}

TEST(CDC, DrawTextSetsCentresAndCuts) {
  CNullDC reference;
  CMetaFileDC dc(reference);
  CFont font;
  font.height = -10;  // five to the letter, a line of twelve
  dc.SelectFont(font);
  RECT area{100, 50, 130, 80};
  EXPECT_EQ(dc.DrawText("ab cd ef", area, DT_CENTER | DT_WORDBREAK), 24);
  RECT measured{100, 50, 130, 80};
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
  EXPECT_EQ(ToUtf8("gr\xFC\xDF"), "gr\xC3\xBC\xC3\x9F");
  EXPECT_EQ(ToUtf8("\x80"), "\xE2\x82\xAC");
  for (const char* invalid : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"}) {
    EXPECT_FALSE(IsValidUtf8(invalid));
    EXPECT_TRUE(IsValidUtf8(ToUtf8(invalid)));
  }
  EXPECT_EQ(Utf8Prefix("a\xE2\x82\xAC", 3), "a");
}

TEST(CSvgDC, WritesTextAsTextAndJoinsLines) {
  CNullDC reference;
  CSvgDC dc(reference, {60, 40});
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Dot}) {
    dc.SelectPen({style, 0, 0x0000FF});
    dc.MoveTo({1, 2});
    dc.LineTo({10, 2});
    dc.LineTo({10, 20});
  }
  const RECT clip{0, 0, 10, 10};
  dc.TextOut({2, 3}, "a<b & \"c\"\x01", &clip);
  const std::string svg = dc.Close();
  EXPECT_NE(svg.find("<path d=\"M1.5,2.5L10.5,2.5L10.5,20.5\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("M1.5,2.5L10.5,2.5M10.5,2.5L10.5,20.5"), std::string::npos)
      << "each line begins its dashes anew, as on the screen";
  EXPECT_NE(svg.find("stroke=\"#ff0000\" stroke-dasharray=\"3,3\""), std::string::npos);
  EXPECT_NE(svg.find(">a&lt;b &amp; &quot;c&quot; </text>"), std::string::npos);
  EXPECT_NE(svg.find("clip-path=\"url(#c1)\""), std::string::npos);
  EXPECT_NE(svg.find("<clipPath id=\"c1\"><rect x=\"0\" y=\"0\" width=\"10\" height=\"10\"/>"),
            std::string::npos);
}

TEST(InstallFolder, CutsBeforeTheFirstBin) {
  const struct {
    const char* program;
    const char* folder;
  } cases[] = {{"C:\\Tools\\Morvane\\bin\\morvane.exe", "C:\\TOOLS\\MORVANE\\"},
               {"/opt/morvane/bin/morvane", "/OPT/MORVANE/"},
               {"C:\\CABIN\\bin\\morvane.exe", "C:\\CA"},
               {"/opt/morvane", "/OPT/MORVANE"},
               {"", ""}};
  for (const auto& c : cases) EXPECT_EQ(InstallFolderOf(c.program), c.folder);
}

class FilesTest : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return folder.Path(name); }

  TempFolder folder;
};

TEST_F(FilesTest, RoundTripAndErrors) {
  const std::string bytes("a\0b\r\n", 5);
  ASSERT_TRUE(WriteWholeFile(Path("x.mrv"), bytes).Ok());
  std::string read;
  ASSERT_TRUE(ReadWholeFile(Path("x.mrv"), read).Ok());
  EXPECT_EQ(read, bytes);
  EXPECT_EQ(ReadWholeFile(Path("none.mrv"), read).ErrorText(), "No such file or directory");
  EXPECT_EQ(ReadWholeFile(folder.Root().string(), read).ErrorText(), "Is a directory");
  EXPECT_FALSE(ReadWholeFile("/dev/zero", read).Ok());
  EXPECT_EQ(WriteWholeFile(Path("none/x.mrv"), bytes).stage, FileResult::Stage::Open);
  const FileResult full = WriteWholeFile("/dev/full", bytes);
  EXPECT_EQ(full.stage, FileResult::Stage::Transfer);
  EXPECT_EQ(full.ErrorText(), "No space left on device");
  EXPECT_FALSE(ReplaceWholeFile(Path("none/x.mrv"), bytes).Ok());
  ASSERT_TRUE(ReplaceWholeFile(Path("x.mrv"), "new").Ok());
  ReadWholeFile(Path("x.mrv"), read);
  EXPECT_EQ(read, "new");
  EXPECT_FALSE(std::filesystem::exists(Path("x.mrv.new")));
}

TEST_F(FilesTest, PathsWithoutRegardToCaseAndSeparator) {
  std::filesystem::create_directory(folder.Root() / "Docs");
  WriteWholeFile(Path("Docs/Guide.pdf"), "x");
  EXPECT_EQ(FindPath(Path("DOCS\\GUIDE.PDF")), Path("Docs/Guide.pdf"));
  EXPECT_EQ(FindPath(Path("DOCS/none.pdf")), Path("DOCS/none.pdf"));
  EXPECT_EQ(FileNameOf("C:\\a/b\\Chart.mrv"), "Chart.mrv");
  EXPECT_EQ(FolderOf("C:\\a/b\\Chart.mrv"), "C:\\a/b");
  EXPECT_EQ(ExtensionOf("a.b/Chart.MRV"), ".mrv");
  EXPECT_EQ(ExtensionOf("a.b/Chart"), "");
}

TEST(RecentFiles, KeepsTheLastSixNewestFirst) {
  MemoryProfile profile;
  const UseService<Profile> use(profile);
  RecentFiles recent;
  for (const char* path : {"a", "b", "c", "d", "e", "f", "g", "c"}) recent.Add(path);
  RecentFiles again;
  again.Load();
  EXPECT_EQ(again.Paths(), (std::vector<std::string>{"c", "g", "f", "e", "d", "b"}));
}

}  // namespace
