#include <array>

#include "drawing/NullDC.h"
#include "drawing/PdfDC.h"
#include "drawing/PdfWriter.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

/// One face, whose letters are numbered as ASCII is and half an em wide; where they stand is up to
/// the test.
class HalfEmFonts : public PdfFonts {
 public:
  const Line& Shape(const CFont& font, std::string_view utf8) override {
    line = {};
    Run& run = line.runs.emplace_back();
    run.size = -font.height;
    double x = 0;
    for (const char c : utf8) {
      run.glyphs.push_back({static_cast<std::uint16_t>(c), x, 0});
      x += step;
    }
    line.needsText = needsText;
    return line;
  }
  int AdvanceOf(int, std::uint16_t) override { return 500; }

  double step = 5;
  bool needsText = false;

 private:
  Line line;
};

TEST(PdfDC, WritesStrokesToTheirEndsAndTextAsText) {
  NullDC reference;
  HalfEmFonts fonts;
  PdfDC dc(reference, {80, 40}, fonts);
  dc.SelectFont({"Face", -10, CFont::kNormalWeight});
  EXPECT_TRUE(dc.PaintsLastPoint());
  // Both sides of an arrow head, in one stroke.
  dc.MoveTo({10, 5});
  dc.LineTo({20, 10});
  dc.LineTo({10, 15});
  dc.SelectPen({PenStyle::Dot, 0, 0x0000FF});
  dc.Polyline(std::array<POINT, 2>{POINT{0, 1}, POINT{9, 1}});
  const RECT clip{0, 0, 12, 40};
  dc.TextOut({2, 3}, "abc", nullptr);
  fonts.step = 6;
  fonts.needsText = true;
  dc.TextOut({2, 3}, "ab\xC3\xA9", &clip);
  const std::string content = dc.Close();
  for (const char* part :
       {"0.75 0 0 -0.75 0 30 cm\n", "10.5 5.5 m\n20.5 10.5 l\n10.5 15.5 l\nS\n",
        "1 0 0 RG\n[3 3 ] 0.5 d\n0.5 1.5 m\n9.5 1.5 l\nS\n",
        "/F0 10 Tf\n1 0 0 -1 2 13 Tm\n[<006100620063>] TJ\n",
        "0 0 12 40 re\nW n\n/Span <</ActualText <feff0061006200e9>>> BDC\n", "[<0061>-100<0062>"}) {
    EXPECT_NE(content.find(part), std::string::npos) << part << " in " << content;
  }
}

TEST(PdfDC, LetsTheLineUnderANameEndInTheBorder) {
  const auto chart = LoadChart(ChartText(StateRecord(1, {10, 10, 40, 30})));
  NullDC reference;
  HalfEmFonts fonts;
  PdfDC dc(reference, {300, 200}, fonts);
  chart->GetModel().DrawAll(&dc);
  const std::string content = dc.Close();
  // The middle of the border stands half a unit inside 60 and 238.
  const std::size_t line = content.find("60.5 ", content.find("ET\n"));
  ASSERT_NE(line, std::string::npos) << content;
  EXPECT_EQ(content.substr(content.find('\n', line) + 1, 6), "237.5 ") << content;
}

TEST(PdfWriter, TellsWhereEachObjectBegins) {
  PdfWriter writer;
  const int second = (writer.Reserve(), writer.Reserve());
  writer.Stream(second, "/Kind /Data", "bytes");
  writer.Dictionary(1, "/Root true");
  const std::string file = writer.Finish(1, second, "00ff");
  const std::size_t table = file.find("xref\n0 3\n");
  ASSERT_NE(table, std::string::npos);
  EXPECT_NE(file.find("startxref\n" + std::to_string(table) + "\n%%EOF"), std::string::npos);
  for (int number = 1; number <= 2; ++number) {
    const std::size_t at =
        std::stoul(file.substr(table + 9 + static_cast<std::size_t>(number) * 20));
    EXPECT_EQ(file.substr(at, 8), std::to_string(number) + " 0 obj\n") << file;
  }
  EXPECT_NE(file.find("/Length 5 >>\nstream\nbytes\nendstream"), std::string::npos);
}

}  // namespace

}  // namespace morvane
