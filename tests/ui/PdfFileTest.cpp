#include <regex>

#include <QProcess>
#include <QTemporaryDir>

#include "drawing/CDC.h"
#include "drawing/PdfText.h"
#include "platform/qt/QtPictures.h"
#include "tests/support/TestSystem.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// Letters of Hebrew, and of Arabic in three forms.
constexpr std::string_view kTurned = "\u05E9\u05DC\u05D5\u05DD \u0628\u064A\u062A";

/// The number of the object in the file that has the title.
std::string NumberOf(const std::string& pdf, const std::string& title) {
  std::smatch found;
  const std::regex entry("(\\d+) 0 obj\n<< /Title " + PdfText(title));
  return std::regex_search(pdf, found, entry) ? found[1].str() : std::string("none");
}

TEST(PdfFile, LeadsToItsPlacesAndCanBeSearched) {
  PictureInfo info;
  info.title = "Lift";
  info.author = "Zo\xC3\xAB";
  info.outline = {{"Outer", {10, 20}, 0}, {"Inner", {30, 40}, 1}, {"Next", {50, 60}, 0}};
  const auto paint = [](CDC& dc) {
    dc.SelectFont({"DejaVu Sans", -11, CFont::kNormalWeight});
    dc.TextOut({4, 4}, "Go(x); Gr\xC3\xBC\xC3\x9F\x65 \xCE\xB1\xCE\xB2", nullptr);
    dc.SelectFont({"DejaVu Sans", -11, CFont::kBoldWeight});
    dc.TextOut({4, 24}, "Bold", nullptr);
    dc.TextOut({4, 44}, kTurned, nullptr);
  };
  QtPictures pictures;
  const std::string pdf = pictures.MakePdf({200, 100}, info, paint).value_or("");
  EXPECT_EQ(pdf, QtPictures().MakePdf({200, 100}, info, paint)) << "the same bytes again";

  PictureInfo large = info;
  large.scale = 2;
  const std::string twice = pictures.MakePdf({200, 100}, large, paint).value_or("");
  for (const char* part : {"/MediaBox [0 0 300.00 150.00]", "/XYZ 45.00 90.00 null"}) {
    EXPECT_NE(twice.find(part), std::string::npos) << part;
  }

  const std::string outer = NumberOf(pdf, "Outer");
  const std::string inner = NumberOf(pdf, "Inner");
  const std::string next = NumberOf(pdf, "Next");
  for (const std::string& part :
       {"/Title " + PdfText("Lift"), "/Author " + PdfText(info.author),
        "/Creator " + PdfText("Morvane"), std::string("/PageMode /UseOutlines"),
        PdfText("Inner") + " /Parent " + outer + " 0 R /Dest [3 0 R /XYZ 22.50 45.00 null]",
        " /Next " + next + " 0 R /First " + inner + " 0 R /Last " + inner + " 0 R /Count 1"}) {
    EXPECT_NE(pdf.find(part), std::string::npos) << part;
  }

  const QTemporaryDir folder;
  QFile file(folder.filePath("page.pdf"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(pdf));
  file.close();
  if (!HasPageReaders()) GTEST_SKIP() << "Programs that read pages are none of this system's";
  QProcess reader;
  reader.start("pdftotext", {file.fileName(), "-"});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftotext is part of poppler-utils";
  EXPECT_EQ(reader.readAllStandardError().toStdString(), "") << "the file is sound";
  const std::string text = reader.readAllStandardOutput().toStdString();
  EXPECT_NE(text.find("Go(x); Gr\xC3\xBC\xC3\x9F\x65 \xCE\xB1\xCE\xB2\n"), std::string::npos)
      << text;
  EXPECT_NE(text.find("Bold\n"), std::string::npos) << text;
  EXPECT_NE(text.find(kTurned), std::string::npos) << text;
}

}  // namespace

}  // namespace morvane
