#pragma once

#include <memory>
#include <string>

#include "platform/Service.h"

namespace morvane {

class CDC;
class CPrintInfo;

/// The pages of a chart on the printer's paper, for whoever shows or prints them. A context that
/// is handed in has the resolution and the printable area of that paper.
class PrintedPages {
 public:
  virtual ~PrintedPages() = default;
  virtual std::string Title() const = 0;
  /// Divides the chart into pages of the context and gives their number. With no page to paint it
  /// says why in `problem`, and there is nothing to end.
  virtual int Begin(CDC& dc, std::string& problem) = 0;
  /// Paints a page, counting from 1.
  virtual void Paint(CDC& dc, int page) = 0;
  /// Ends what `Begin` began.
  virtual void End(CDC& dc) = 0;
  /// Prints, with the print dialog first.
  virtual void Print() = 0;
  /// Lets the user choose how the chart is put on paper.
  virtual void SetUp() = 0;
};

/// A document on its way to a printer or a file. One that is let go without `End` is given up.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  /// The context of the present page. Before the first page it only tells what the paper is like.
  virtual CDC& DC() = 0;
  /// Takes up the next page of `pages`; false when the user or the printer ended the job.
  virtual bool StartPage(int pages) = 0;
  /// Ends the document. Gives the reason of a failure; empty on success, and when the user had
  /// ended the job.
  virtual std::string End() = 0;
};

/// The printers of the desktop. The default service has none: its dialog is cancelled.
class Printing {
 public:
  virtual ~Printing() = default;
  /// Lets the user choose printer, pages and copies, unless `info.direct` and a printer is known;
  /// false on Cancel. `title` names the document.
  virtual bool AskPrinter(CPrintInfo& info, const std::string& title) = 0;
  /// Lets the user set paper, orientation and margins. They hold until the program ends.
  virtual void SetUpPrinter() = 0;
  /// A document for the printer that was chosen, which hears of it with the first page. Null
  /// without any printer.
  virtual std::unique_ptr<PrintJob> StartJob(const std::string& title) = 0;
  /// Shows the pages in a window until the user closes it.
  virtual void ShowPreview(PrintedPages& pages) = 0;
  static Printing& Default();
};

}  // namespace morvane
