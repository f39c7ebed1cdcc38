#pragma once

#include "drawing/qt/QtText.h"
#include "platform/Printing.h"

class QPrinter;

namespace morvane {

/// The desktop's printers by Qt, and documents in PDF files.
class QtPrinting : public Printing {
 public:
  /// Pixels to the inch of the paper.
  static constexpr int kResolution = 600;

  QtPrinting();
  ~QtPrinting() override;

  bool AskPrinter(CPrintInfo& info, const std::string& title) override;
  void SetUpPrinter() override;
  std::unique_ptr<PrintJob> StartJob(const std::string& title) override;
  void ShowPreview(PrintedPages& pages) override;

  /// The printer as it is set up now. It is made when it is first asked for, as it was set up last:
  /// to look for one is slow.
  QPrinter& Printer();

 private:
  std::unique_ptr<QPrinter> printer;
  QtFontCache fonts;
};

}  // namespace morvane
