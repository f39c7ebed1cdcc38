#pragma once

#include <deque>
#include <string>
#include <vector>

#include "drawing/Mapping.h"
#include "drawing/Metafile.h"
#include "platform/CPrintInfo.h"
#include "platform/Printing.h"
#include "platform/UseService.h"

namespace morvane {

/// Takes the place of the printers for the length of a test: a printer whose paper the test
/// chooses, which keeps what is printed.
class ScriptedPrinting : public Printing {
 public:
  struct Page {
    Metafile drawn;
    Mapping mapping;  ///< as the page left it
  };
  struct Document {
    std::string title;
    std::vector<Page> pages;
    bool ended = false;
  };

  SIZE millimetres{210, 297};
  SIZE pixels{4960, 7016};
  bool accepts = true;  ///< the print dialog ends with OK
  int fromPage = 1;     ///< what is chosen in it
  int toPage = CPrintInfo::kAllPages;
  int cancelAtPage = 0;  ///< the user ends the job before that page
  std::string failure;   ///< what goes wrong at the end
  std::vector<Document> documents;
  int dialogs = 0;
  int setups = 0;
  int previewPages = 0;
  std::string previewProblem;

  bool AskPrinter(CPrintInfo& info, const std::string& title) override;
  void SetUpPrinter() override;
  std::unique_ptr<PrintJob> StartJob(const std::string& title) override;
  void ShowPreview(PrintedPages& pages) override;

 private:
  const UseService<Printing> use{*this};
};

}  // namespace morvane
