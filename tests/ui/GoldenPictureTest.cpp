#include <QSvgRenderer>

#include "drawing/EmfWriter.h"
#include "drawing/SvgDC.h"
#include "drawing/TextCodec.h"
#include "drawing/qt/QtTextBreaks.h"
#include "model/Defaults.h"
#include "platform/qt/QtPictures.h"
#include "tests/support/EmfReader.h"
#include "tests/support/Places.h"
#include "tests/support/TestSystem.h"
#include "tests/ui/PictureCompare.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

// Pictures of whole charts against those that were found good, tests/golden/*.png. With the
// environment variable MORVANE_UPDATE_GOLDEN set, the tests write those files anew instead.

namespace {

/// What another version of a font renderer may change. Half an arrow head makes 27, a text that is
/// moved by a pixel 26, other dashes 19.
constexpr int kSameRenderer = 16;
/// A page is smoothed in another way; half an arrow head in it makes 27 or more.
constexpr int kPageRenderer = 26;
/// The toolkit's SVG knows no lengths of texts, so that their ends wander by a pixel; an arrow head
/// makes 56 or more.
constexpr int kSvgRenderer = 40;

/// Commas and brackets of ideographs stand elsewhere in another font, by more than a pixel.
constexpr int kOtherFonts = 34;

constexpr const char* kFace = "DejaVu Sans";
constexpr std::uint32_t kFirstIdeograph = 0x2E80;
constexpr char32_t kFirstThai = 0x0E00;
constexpr char32_t kLastThai = 0x0E7F;
constexpr const char* kScripts = "Scripts";
constexpr const char* kOtherFaces = ", DejaVu Sans, sans-serif";

/// One picture in all its forms.
struct Forms {
  SIZE size;
  Metafile calls;
  std::string png;
  std::string svg;
  std::string pdf;
  std::string emf;
};

struct Sample {
  const char* name;
  const char* chart;  ///< a path from the root; null for the drawing of all pens
};

/// Upright shapes with every pen and all others with those that have no dashes, also what no chart
/// has.
void DrawPens(CDC& dc) {
  constexpr int height = 40;
  dc.SelectFont(CFont::FromTenthsOfPoint(80, kFace));
  int y = 10;
  for (const int width : {0, 3, 6}) {
    for (int style = 0; style <= 5; ++style) {
      dc.SelectPen({static_cast<PenStyle>(style), width, RGB(0, 0, 160)});
      dc.SelectBrush(style % 2 == 1 ? CBrush::Solid(RGB(255, 240, 200)) : CBrush::Null());
      const RECT box{0, y, 60, y + height - 10};
      dc.Rectangle(box + POINT{10, 0});
      // A screen measures the dashes of a slanted line along one axis, a page along the line.
      const bool dashed = width == 0 && !DashPatternOf(dc.GetPen().style).empty();
      const int slant = dashed ? 0 : 1;
      const std::array<POINT, 3> corners{POINT{300, y + 28}, POINT{350, y + 28 - 4 * slant},
                                         POINT{350 - 30 * slant, y}};
      if (!dashed) {
        dc.RoundRect(box + POINT{80, 0}, {20, 20});
        dc.Ellipse(box + POINT{150, 0});
        dc.Arc(box + POINT{220, 0}, {280, y + 15}, {250, y});
        dc.Polygon(corners);
      }
      dc.Polyline(corners);
      dc.MoveTo({365, y});
      dc.LineTo({365, y + 28});
      dc.LineTo({420, y + 28});
      dc.LineTo({420 - 25 * slant, y + 2});
      y += height;
    }
  }
  dc.SelectBrush(CBrush::Solid(RGB(0, 128, 0)));
  dc.FillMask({440, 20}, {5, 5, {0x70, 0xF8, 0xF8, 0xF8, 0x70}});
  dc.FrameRect({440, 40, 480, 60}, CBrush::Solid(RGB(200, 0, 0)));
  const RECT cut{440, 80, 480, 92};
  dc.TextOut({436, 76}, "Cut at all sides", &cut);
}

Forms MakeForms(Pictures& pictures, const Sample& sample) {
  Forms forms;
  const auto reference = pictures.ReferenceDC();
  CMetaFileDC recording(*reference);
  if (sample.chart != nullptr) {
    LayoutMgr chart;
    const std::string path = SourcePath(sample.chart);
    EXPECT_EQ(ModelFile::Load(path, chart), "");
    chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
    const ChartPicture picture(chart);
    picture.Paint(recording);
    return {picture.Size(),
            recording.Close(),
            picture.MakePng().value_or(""),
            picture.MakeSvg(),
            picture.MakePdf().value_or(""),
            picture.MakeEmf()};
  }
  forms.size = {500, 740};
  DrawPens(recording);
  forms.calls = recording.Close();
  forms.png = pictures.MakePng(forms.size, {}, DrawPens).value_or("");
  forms.pdf = pictures.MakePdf(forms.size, {}, DrawPens).value_or("");
  SvgDC svg(*reference, forms.size);
  DrawPens(svg);
  forms.svg = svg.Close();
  forms.emf = EmfWriter::Encode(forms.calls, *reference, "Program");
  return forms;
}

QImage Decode(const std::string& png) { return QImage::fromData(QByteArray::fromStdString(png)); }

class GoldenPicture : public testing::TestWithParam<Sample> {
 protected:
  GoldenPicture() : formerFace(Settings().FontName) {
    // The same face everywhere, whatever stands in for the default one.
    Settings().FontName = kFace;
    TextBreaks::Use(&breaks);
    forms = MakeForms(pictures, GetParam());
    output.mkpath(".");
  }
  ~GoldenPicture() override {
    Settings().FontName = formerFace;
    TextBreaks::Use(nullptr);
  }

  static Defaults& Settings() { return Defaults::Instance(); }
  static QString GoldenPath() {
    return QString::fromStdString(SourcePath("tests/golden/") + GetParam().name + ".png");
  }
  /// Leaves both pictures behind where they differ too much.
  void ExpectGolden(const QImage& got, const char* form, int tolerance,
                    const QRegion& ignored = {}) const {
    const QImage wanted(GoldenPath());
    const PictureDifference difference = PictureDifference::Of(got, wanted, ignored);
    const QString stem = output.filePath(QStringLiteral("%1-%2").arg(GetParam().name, form));
    RecordProperty(form, difference.worst);
    const bool hasIdeographs = std::string_view(GetParam().name) == kScripts;
    if (hasIdeographs && !HasFontconfig()) tolerance = std::max(tolerance, kOtherFonts);
    if (difference.worst <= tolerance) return;
    got.save(stem + "-got.png");
    wanted.save(stem + "-wanted.png");
    ADD_FAILURE() << "differs by " << difference.worst << " around (" << difference.where.x()
                  << ", " << difference.where.y() << "): compare " << stem.toStdString()
                  << "-got.png with " << stem.toStdString() << "-wanted.png";
  }
  /// Where texts are that the renderer of SVG paints in its own way: cut off, which it doesn't
  /// know, or thickened, as bold ideographs of a face that has no bold ones are, which it doesn't
  /// do.
  QRegion TextsOfItsOwn() {
    QRegion region;
    const auto reference = pictures.ReferenceDC();
    for (const Metafile::Record& call : forms.calls.records) {
      if (call.kind != Metafile::Kind::TextOut || !call.clipped) continue;
      reference->SelectFont(forms.calls.fonts[static_cast<std::size_t>(call.font)]);
      const SIZE extent = reference->GetTextExtent(call.text);
      const QRect box(call.points[0].x, call.points[0].y, extent.cx, extent.cy);
      const QRect clip(QPoint(call.rect.left, call.rect.top),
                       QPoint(call.rect.right - 1, call.rect.bottom - 1));
      const bool bold = reference->GetFont().weight >= CFont::kBoldWeight;
      const bool thickened = bold && DecodeUtf8(call.text, 0).value >= kFirstIdeograph;
      if (thickened || !clip.contains(box)) region += box;
    }
    return region;
  }
  /// Where the toolkit knows no words of Thai, lines of it end elsewhere than in the good pictures:
  /// the place of those that find no end in their box, and of the line below.
  QRegion UnpartedTexts() {
    QRegion region;
    if (HasThaiWords()) return region;
    const auto reference = pictures.ReferenceDC();
    for (const Metafile::Record& call : forms.calls.records) {
      if (call.kind != Metafile::Kind::TextOut || !call.clipped) continue;
      const char32_t first = DecodeUtf8(call.text, 0).value;
      reference->SelectFont(forms.calls.fonts[static_cast<std::size_t>(call.font)]);
      const SIZE extent = reference->GetTextExtent(call.text);
      if (first < kFirstThai || first > kLastThai || extent.cx <= Width(call.rect)) continue;
      region += QRect(call.rect.left, call.points[0].y, Width(call.rect), 2 * extent.cy);
    }
    return region;
  }

  const QtTextBreaks breaks;
  QtPictures pictures;
  const UseService<Pictures> use{pictures};
  std::string formerFace;
  Forms forms;
  QDir output{QString::fromStdString(OutputPath("golden"))};
};

TEST_P(GoldenPicture, Png) {
  if (qEnvironmentVariableIsSet("MORVANE_UPDATE_GOLDEN")) {
    QFile file(GoldenPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(forms.png));
  }
  ExpectGolden(Decode(forms.png), "png", kSameRenderer, UnpartedTexts());
}

TEST_P(GoldenPicture, EmfReplayed) {
  const Metafile replayed = EmfReader(forms.emf).Replay();
  const auto png = pictures.MakePng(forms.size, {}, [&](CDC& dc) { dc.PlayMetaFile(replayed); });
  ExpectGolden(Decode(png.value_or("")), "emf", kSameRenderer, UnpartedTexts());
}

TEST_P(GoldenPicture, SvgRendered) {
  // That renderer takes a list of faces for one name, which it lacks.
  const QByteArray svg = QByteArray::fromStdString(forms.svg).replace(kOtherFaces, "");
  QSvgRenderer renderer(svg);
  ASSERT_TRUE(renderer.isValid());
  QImage image(forms.size.cx, forms.size.cy, QImage::Format_RGB32);
  {
    QPainter painter(&image);
    renderer.render(&painter);
  }
  ExpectGolden(image, "svg", kSvgRenderer, TextsOfItsOwn() + UnpartedTexts());
}

TEST_P(GoldenPicture, PdfRendered) {
  const QString stem = output.filePath(GetParam().name);
  QFile file(stem + ".pdf");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(forms.pdf));
  file.close();
  if (!HasPageReaders()) GTEST_SKIP() << "Programs that read pages are none of this system's";
  const int status = QProcess::execute(
      "pdftoppm",
      {"-r", "96", "-x", "0", "-y", "0", "-W", QString::number(forms.size.cx), "-H",
       QString::number(forms.size.cy), "-png", "-singlefile", file.fileName(), stem + "-page"});
  ASSERT_EQ(status, 0) << "pdftoppm is part of poppler-utils, which scripts/setup.sh installs";
  ExpectGolden(QImage(stem + "-page.png"), "pdf", kPageRenderer, UnpartedTexts());
}

INSTANTIATE_TEST_SUITE_P(
    Charts, GoldenPicture,
    testing::Values(Sample{"Socket", "Examples/Socket_C++/Socket.mrv"},
                    Sample{"Lift", "Examples/Lift/Lift.mrv"},
                    Sample{"CashMachine", "Examples/CashMachine/CashMachine.mrv"},
                    Sample{"Features", "tests/golden/Features.mrv"},
                    Sample{kScripts, "tests/golden/Scripts.mrv"}, Sample{"Pens", nullptr}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace

}  // namespace morvane
