#include <QtPrintSupport>

#include "platform/CPrintInfo.h"
#include "platform/Profile.h"
#include "platform/qt/PrinterSettings.h"
#include "platform/qt/QtPrintPreview.h"
#include "platform/qt/QtPrinting.h"
#include "tests/support/TestSystem.h"
#include "tests/ui/Canvas.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

constexpr int kDotsPerInch = 60;

/// The desktop's printing with documents in PDF files.
class PrintWindow : public testing::Test {
 protected:
  PrintWindow() {
    SetPath(folder.Path("chart.pdf"));
    printing.Printer().setPageSize(QPageSize(QPageSize::A4));
    printing.Printer().setPageMargins({10, 10, 10, 10}, QPageLayout::Millimeter);
  }

  void SetPath(const std::string& path) {
    printing.Printer().setOutputFormat(QPrinter::PdfFormat);
    printing.Printer().setOutputFileName(QString::fromStdString(path));
  }
  /// The pages of the document, as another program shows them.
  std::vector<QImage> Pages() {
    const QString pdf = QString::fromStdString(folder.Path("chart.pdf"));
    if (!QFile::exists(pdf)) return {};
    QProcess::execute("pdftoppm", {"-r", QString::number(kDotsPerInch), "-png", pdf, pdf});
    std::vector<QImage> pages;
    for (int page = 1;; ++page) {
      const QImage image(QStringLiteral("%1-%2.png").arg(pdf).arg(page));
      if (image.isNull()) return pages;
      pages.push_back(image.convertToFormat(QImage::Format_RGB32));
    }
  }
  /// Answers the dialog that comes next and asks for a printer or, where that is the system's own
  /// and it has no printer, for a file.
  void AnswerPrintDialog(bool prints, const std::string& proposed = {}) {
    const auto answer = [prints](QDialog& dialog) { prints ? dialog.accept() : dialog.reject(); };
    const auto expect = [proposed](const QString& file) {
      if (!proposed.empty()) {
        EXPECT_EQ(QDir::fromNativeSeparators(file).toStdString(), proposed);
      }
    };
    if (HasToolkitPrintDialog()) {
      return InNextWindow<QPrintDialog>([answer, expect](QPrintDialog& dialog) {
        const auto* field = dialog.findChild<QLineEdit*>("filename");
        ASSERT_NE(field, nullptr);
        expect(field->text());
        answer(dialog);
      });
    }
    const QString file = printing.Printer().outputFileName();
    InNextWindow<QFileDialog>([answer, expect, prints, file](QFileDialog& dialog) {
      expect(dialog.selectedFiles().value(0));
      if (prints) dialog.selectFile(file);
      answer(dialog);
    });
  }
  static QAction* Button(QtPrintPreview& preview, const QString& text) {
    for (QAction* action : preview.findChild<QToolBar*>()->actions()) {
      if (action->text() == text) return action;
    }
    ADD_FAILURE() << text.toStdString();
    return nullptr;
  }
  static std::string Position(QtPrintPreview& preview) {
    return preview.findChild<QLabel*>()->text().toStdString();
  }

  TempFolder folder;
  QtPrinting printing;
  const UseService<Printing> use{printing};
  ScriptedMessageBoxes boxes;
};

TEST_F(PrintWindow, PagesMeetAtTheEdgesOfThePrintableArea) {
  // One state from the first page to the second: twenty model units to the inch.
  const auto chart = LoadChart(ChartText(StateRecord(1, {20, 20, 250, 100})));
  EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT_DIRECT));
  if (!HasPageReaders()) GTEST_SKIP() << "Programs that read pages are none of this system's";
  const std::vector<QImage> pages = Pages();
  ASSERT_EQ(pages.size(), 2U);
  const double millimetre = kDotsPerInch / 25.4;
  const double unit = kDotsPerInch / 20.0;
  const QRect first = InkOf(pages[0]);
  EXPECT_NEAR(first.left(), 10 * millimetre + 20 * unit, 2);
  EXPECT_NEAR(first.top(), 10 * millimetre + 20 * unit, 2);
  EXPECT_NEAR(first.right(), 200 * millimetre, 2) << "nothing shows in the margin";
  const QRect second = InkOf(pages[1]);
  EXPECT_NEAR(second.left(), 10 * millimetre, 2);
  EXPECT_NEAR(first.width() + second.width(), 230 * unit, 4) << "nothing is lost or shown twice";
  EXPECT_NEAR(second.height(), 80 * unit, 3);
}

TEST_F(PrintWindow, PreviewShowsThePagesThatThePaperGets) {
  const auto chart = LoadChart(ChartText(StateRecord(1, {20, 20, 250, 100})));
  bool wasOpen = false;
  InNextWindow<QtPrintPreview>([&](QtPrintPreview& preview) {
    wasOpen = true;
    auto* view = preview.findChild<QPrintPreviewWidget*>();
    EXPECT_EQ(view->pageCount(), 2);
    EXPECT_EQ(Position(preview), "Page 1 of 2");
    EXPECT_FALSE(Button(preview, "Previous Page")->isEnabled());
    Button(preview, "Next Page")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(Position(preview), "Page 2 of 2");
    EXPECT_FALSE(Button(preview, "Next Page")->isEnabled());
    const double before = view->zoomFactor();
    Button(preview, "Zoom In")->trigger();
    EXPECT_GT(view->zoomFactor(), before);
    for (int i = 0; i < 40; ++i) Button(preview, "Zoom Out")->trigger();
    EXPECT_GT(view->zoomFactor(), 0.05);
    Button(preview, "All Pages")->trigger();
    EXPECT_EQ(view->viewMode(), QPrintPreviewWidget::AllPagesView);

    AnswerPrintDialog(true);
    Button(preview, "Print...")->trigger();
    if (HasPageReaders()) {
      EXPECT_EQ(Pages().size(), 2U);
    }
    EXPECT_TRUE(preview.isVisible());
  });
  EXPECT_TRUE(chart->OnCommand(ID_FILE_PRINT_PREVIEW));
  EXPECT_TRUE(wasOpen);
}

TEST_F(PrintWindow, AFileGetsCopiesInOrderAndInGreyAndLiesBesideTheChart) {
  const auto chart = LoadChart(ChartText(StateRecord(1, {20, 20, 250, 100})));
  CPrintInfo info;
  info.path = folder.Path("Lift.mrv");
  AnswerPrintDialog(false, folder.Path("Lift.pdf"));
  printing.AskPrinter(info, "Lift");

  QPrinter& printer = printing.Printer();
  printer.setCopyCount(2);
  printer.setCollateCopies(false);
  printer.setPageOrder(QPrinter::LastPageFirst);
  printer.setColorMode(QPrinter::GrayScale);
  chart->OnCommand(ID_FILE_PRINT_DIRECT);
  if (!HasPageReaders()) GTEST_SKIP() << "Programs that read pages are none of this system's";
  const std::vector<QImage> pages = Pages();
  ASSERT_EQ(pages.size(), 4U);
  EXPECT_EQ(pages[0], pages[1]);
  EXPECT_EQ(pages[2], pages[3]);
  EXPECT_GT(InkOf(pages[2]).width(), InkOf(pages[0]).width()) << "the last page comes first";
  for (const QImage& page : pages) EXPECT_TRUE(page.allGray());
}

TEST_F(PrintWindow, ThePrinterIsSetUpAsLastTime) {
  MemoryProfile profile;
  const UseService<Profile> useProfile(profile);
  QPrinter& printer = printing.Printer();
  printer.setPageSize(QPageSize(QPageSize::A5));
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setPageMargins({12, 13, 14, 15}, QPageLayout::Millimeter);
  PrinterSettings::Store(printer);
  for (const char* damage : {"", "rubbish", "-7", "99999999"}) {
    if (*damage != 0) profile.WriteString("Print", "MarginTop", damage);
    QtPrinting next;
    const QPageLayout layout = next.Printer().pageLayout();
    EXPECT_EQ(next.Printer().outputFormat(), QPrinter::PdfFormat);
    EXPECT_EQ(layout.pageSize().id(), QPageSize::A5);
    EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    EXPECT_TRUE(*damage != 0 || std::abs(margins.top() - 13) < 0.1) << margins.top();
    EXPECT_LT(margins.top(), 148);
  }
}

TEST_F(PrintWindow, WhatCannotBePrintedIsSaidAndCancelPrintsNothing) {
  const auto far = LoadChart(ChartText(StateRecord(1, {0, 0, 2000000000, 2000000000})));
  InNextWindow<QtPrintPreview>([](QtPrintPreview& preview) {
    EXPECT_NE(Position(preview).find("too large"), std::string::npos);
    EXPECT_FALSE(Button(preview, "Print...")->isEnabled());
  });
  far->OnCommand(ID_FILE_PRINT_PREVIEW);

  const auto chart = LoadChart(SmallChart());
  AnswerPrintDialog(false);
  chart->OnCommand(ID_FILE_PRINT);
  EXPECT_TRUE(Pages().empty());
  SetPath(folder.Path("none/chart.pdf"));
  boxes.Expect(QDir::toNativeSeparators("none/chart.pdf").toStdString());
  chart->OnCommand(ID_FILE_PRINT_DIRECT);
  EXPECT_EQ(boxes.LastFlags(), MB_ICONHAND);
  if (FullDevice().empty()) return;
  SetPath(FullDevice());
  boxes.Expect("No space left on device");
  chart->OnCommand(ID_FILE_PRINT_DIRECT);
  EXPECT_EQ(boxes.LastFlags(), MB_ICONHAND);
}

}  // namespace

}  // namespace morvane
