#pragma once

#include <memory>

#include <QBuffer>
#include <QImage>
#include <QString>

#include "drawing/Geometry.h"
#include "platform/Printing.h"

class QPagedPaintDevice;
class QPdfWriter;
class QPrinter;
class QProgressDialog;

namespace morvane {

class QtDC;
class QtFontCache;

/// A document on a printer, or in a PDF file, which is written as a whole at the end. A long one
/// shows how far it is and can be cancelled.
class QtPrintJob : public PrintJob {
 public:
  /// The printer tells paper, resolution and where the document goes; it has to outlive the job, as
  /// the fonts have.
  QtPrintJob(QPrinter& printer, const QString& title, QtFontCache& fonts);
  ~QtPrintJob() override;

  CDC& DC() override;
  bool StartPage(int pages) override;
  std::string End() override;

  /// The printable area of the printer's page, device pixels.
  static SIZE PageArea(const QPrinter& printer);

 private:
  bool Open();
  QPagedPaintDevice& Device() const;
  bool ShowProgress(int pages);
  std::string WriteFile();

  QPrinter& printer;
  QtFontCache& fonts;
  QImage blank;  ///< behind the context that only measures
  QBuffer file;
  std::unique_ptr<QPdfWriter> pdf;  ///< null on a real printer
  std::unique_ptr<QtDC> dc;
  std::unique_ptr<QProgressDialog> progress;
  int page = 0;
  bool cancelled = false;
  bool failed = false;
};

}  // namespace morvane
