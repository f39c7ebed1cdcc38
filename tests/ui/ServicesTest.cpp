#include <csignal>
#include <sys/resource.h>

#include "platform/CDC.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/QtProfile.h"
#include "platform/qt/QtServices.h"
#include "tests/ui/WindowTest.h"

namespace {

void DrawSample(CDC& dc) {
  dc.SelectFont(CFont::FromTenthsOfPoint(80, "Verdana"));
  dc.SelectBrush(CBrush::Solid(RGB(255, 255, 200)));
  dc.RoundRect({10, 10, 90, 60}, {20, 20});
  dc.TextOut({20, 20}, "Sample", nullptr);
  dc.MoveTo({0, 70});
  dc.LineTo({100, 95});
}

/// No file of this process can grow beyond a few bytes, as on a full disk.
class FullDisk {
 public:
  FullDisk() : handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former);
    rlimit limit = former;
    limit.rlim_cur = 100;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
  }

 private:
  void (*handler)(int);
  rlimit former{};
};

QImage Decode(const std::string& bytes) {
  return QImage::fromData(QByteArray::fromStdString(bytes), "png");
}

}  // namespace

TEST(QtClipboardTest, KeepsAllBytesUnderAllFormats) {
  QtClipboard clipboard;
  const std::string chart("BEGIN\0\xFF\n\0", 9);
  EXPECT_EQ(clipboard.Put({{"MORVANE_FORMAT", chart}, {"image/x-emf", std::string("\0\1", 2)}}),
            ClipboardError::None);
  ClipboardError error = ClipboardError::Open;
  EXPECT_EQ(clipboard.Get("MORVANE_FORMAT", error), chart);
  EXPECT_EQ(error, ClipboardError::None);
  EXPECT_EQ(clipboard.Get("image/x-emf", error), std::string("\0\1", 2));
  EXPECT_TRUE(clipboard.IsAvailable("MORVANE_FORMAT"));
  EXPECT_EQ(QtClipboard::MimeTypeOf("MORVANE_FORMAT"),
            "application/x-qt-windows-mime;value=\"MORVANE_FORMAT\"");

  EXPECT_EQ(clipboard.Put({{"text/plain", "other"}}), ClipboardError::None);
  EXPECT_FALSE(clipboard.IsAvailable("MORVANE_FORMAT"));
  EXPECT_EQ(clipboard.Get("MORVANE_FORMAT", error), std::nullopt);
  EXPECT_EQ(error, ClipboardError::None);
}

TEST(QtProfileTest, ComesBackFromTheFile) {
  const TempFolder folder;
  const std::string path = folder.Path("settings.ini");
  const std::string notUtf8 = "/home/caf\xE9, a;b=\"c\" %41";
  {
    QtProfile profile(path);
    profile.Write("Settings", {{"FontSize", "-2147483648"}, {"FontName", "Verdana, \xC3\xA4"}});
    profile.WriteString("Recent File List", "File1", notUtf8);
    profile.WriteString("", "Language", "eng");
  }
  QtProfile profile(path);
  EXPECT_EQ(profile.GetInt("Settings", "FontSize", 0), -2147483647 - 1);
  EXPECT_EQ(profile.GetString("Settings", "FontName", ""), "Verdana, \xC3\xA4");
  EXPECT_EQ(profile.GetString("Recent File List", "File1", ""), notUtf8);
  EXPECT_EQ(profile.GetString("", "Language", ""), "eng");
  EXPECT_EQ(profile.GetString("Settings", "Nothing", "fallback"), "fallback");
  std::string text;
  ASSERT_TRUE(ReadWholeFile(path, text).Ok());
  EXPECT_NE(text.find("FontSize=-2147483648"), std::string::npos);
}

TEST(QtProfileTest, AFullDiskIsSaidOnceAndLeavesTheOldSettings) {
  const TempFolder folder;
  const std::string path = folder.Path("settings.ini");
  const std::string before = "[Settings]\nFontSize=80\n";
  WriteWholeFile(path, before);
  ScriptedMessageBoxes boxes;
  const FullDisk full;
  {
    QtProfile profile(path);
    boxes.Expect("The settings cannot be saved\n\n" + path);
    profile.WriteString("Settings", "FontName", std::string(5000, 'x'));
    profile.WriteString("Settings", "FontName", std::string(5000, 'y'));
    EXPECT_EQ(profile.GetString("Settings", "FontName", "")[0], 'y') << "it holds for this run";
  }
  std::string after;
  ReadWholeFile(path, after);
  EXPECT_EQ(after, before);
}

TEST(QtProfileTest, ValueOfTheWrongKindGivesTheFallback) {
  const TempFolder folder;
  const std::string path = folder.Path("settings.ini");
  WriteWholeFile(path,
                 "[Settings]\nWord=abc\nEmpty=\nLong=99999999999\nFloat=1.5\nList=1, 2\nGood=12\n"
                 "Point=@Point(1 2)\nBroken=@Variant(xyz)\n");
  QtProfile profile(path);
  for (const char* key : {"Word", "Empty", "Long", "Float", "List", "Point", "Broken", "None"}) {
    EXPECT_EQ(profile.GetInt("Settings", key, 7), 7) << key;
  }
  EXPECT_EQ(profile.GetInt("Settings", "Good", 7), 12);
  EXPECT_EQ(profile.GetString("Settings", "List", "f"), "1, 2");
  EXPECT_EQ(profile.GetString("Settings", "Point", "f"), "f");
}

TEST(QtPicturesTest, PngHasTheSizeAndASmallPalette) {
  QtPictures pictures;
  const auto png = pictures.MakePng({120, 100}, DrawSample);
  ASSERT_TRUE(png);
  const QImage image = Decode(*png);
  EXPECT_EQ(image.size(), QSize(120, 100));
  EXPECT_EQ(image.format(), QImage::Format_Indexed8);
  EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
  EXPECT_EQ(image.pixel(40, 50), qRgb(255, 255, 200));
  EXPECT_EQ(pictures.MakePng({120, 100}, DrawSample), png);
  EXPECT_EQ(png->find("tIME"), std::string::npos);
}

TEST(QtPicturesTest, PngOfManyColoursKeepsThemAll) {
  QtPictures pictures;
  const auto png = pictures.MakePng({64, 64}, [](CDC& dc) {
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) dc.FillSolidRect({x, y, x + 1, y + 1}, RGB(x * 4, y * 4, x ^ y));
    }
  });
  ASSERT_TRUE(png);
  const QImage image = Decode(*png);
  EXPECT_EQ(image.pixel(5, 9), qRgb(20, 36, 5 ^ 9));
  EXPECT_EQ(image.pixel(63, 0), qRgb(252, 0, 63));
}

TEST(QtPicturesTest, TooLargeAPictureIsNotMade) {
  QtPictures pictures;
  const auto fail = [](CDC&) { FAIL(); };
  EXPECT_FALSE(pictures.MakePng({32768, 1}, fail));
  EXPECT_FALSE(pictures.MakePng({30000, 30000}, fail));
  EXPECT_FALSE(pictures.MakePng({0, 10}, fail));
  EXPECT_FALSE(pictures.MakePdf({19201, 10}, fail));
  EXPECT_FALSE(pictures.MakePdf({10, -1}, fail));
}

TEST(QtPicturesTest, PdfIsOnePageOfItsSizeAndReproducible) {
  QtPictures pictures;
  const auto pdf = pictures.MakePdf({400, 200}, DrawSample);
  ASSERT_TRUE(pdf);
  EXPECT_EQ(pdf->substr(0, 5), "%PDF-");
  const QString text = QString::fromLatin1(QByteArray::fromStdString(*pdf));
  const auto box = QRegularExpression(R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])").match(text);
  ASSERT_TRUE(box.hasMatch());
  EXPECT_EQ(box.captured(1).toDouble(), 300);
  EXPECT_EQ(box.captured(2).toDouble(), 150);
  EXPECT_TRUE(text.contains("/Count 1"));
  EXPECT_TRUE(text.contains("/FontFile2")) << "letters are kept as letters";
  EXPECT_TRUE(text.contains("/CreationDate (D:20000101000000"));
  EXPECT_EQ(pictures.MakePdf({400, 200}, DrawSample), pdf);
}

TEST(QtPicturesTest, ReferenceMeasuresAsAPictureDoes) {
  QtPictures pictures;
  const auto reference = pictures.ReferenceDC();
  reference->SelectFont(CFont::FromTenthsOfPoint(80, "Verdana"));
  const SIZE measured = reference->GetTextExtent("Some words");
  EXPECT_EQ(reference->GetDeviceCaps(DeviceCap::LogPixelsX), 96);
  pictures.MakePdf({100, 100}, [&](CDC& dc) {
    dc.SelectFont(CFont::FromTenthsOfPoint(80, "Verdana"));
    EXPECT_EQ(dc.GetTextExtent("Some words"), measured);
  });
}

TEST(QtServicesTest, AreInUseWhileTheyLive) {
  MessageBoxes& before = Service<MessageBoxes>::Get();
  {
    const QtServices job(QtServices::Use::Job);
    EXPECT_EQ(&Service<MessageBoxes>::Get(), &before);
    EXPECT_NE(dynamic_cast<MemoryProfile*>(&Service<Profile>::Get()), nullptr);
    EXPECT_NE(dynamic_cast<QtPictures*>(&Service<Pictures>::Get()), nullptr);
  }
  EXPECT_EQ(&Service<Pictures>::Get(), &Pictures::Default());
}
