#include "tests/support/ScriptedPrinting.h"

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

namespace {

/// Measures as no window does, on paper of a size.
class PaperDC : public NullDC {
 public:
  PaperDC(SIZE millimetres, SIZE pixels) : millimetres(millimetres), pixels(pixels) {}
  int GetDeviceCaps(DeviceCap cap) const override {
    switch (cap) {
      case DeviceCap::HorzSize: return millimetres.cx;
      case DeviceCap::VertSize: return millimetres.cy;
      case DeviceCap::HorzRes: return pixels.cx;
      case DeviceCap::VertRes: return pixels.cy;
      default: return NullDC::GetDeviceCaps(cap);
    }
  }

 private:
  SIZE millimetres;
  SIZE pixels;
};

class ScriptedJob : public PrintJob {
 public:
  ScriptedJob(ScriptedPrinting& printing, std::size_t document)
      : printing(printing),
        document(document),
        paper(printing.millimetres, printing.pixels),
        dc(paper) {}

  CDC& DC() override { return dc; }
  bool StartPage(int /*pages*/) override {
    FinishPage();
    NestedLoop::Run();  // the window that shows how far the job is
    isOpen = ++page != printing.cancelAtPage;
    return isOpen;
  }
  std::string End() override {
    FinishPage();
    printing.documents[document].ended = printing.failure.empty();
    return printing.failure;
  }

 private:
  void FinishPage() {
    if (isOpen) printing.documents[document].pages.push_back({dc.Close(), dc.GetMapping()});
    isOpen = false;
  }

  ScriptedPrinting& printing;
  std::size_t document;
  PaperDC paper;
  CMetaFileDC dc;
  int page = 0;
  bool isOpen = false;
};

}  // namespace

bool ScriptedPrinting::AskPrinter(CPrintInfo& info, const std::string& /*title*/) {
  if (info.direct) return true;
  ++dialogs;
  NestedLoop::Run();
  info.fromPage = fromPage;
  info.toPage = toPage;
  return accepts;
}

void ScriptedPrinting::SetUpPrinter() {
  ++setups;
  NestedLoop::Run();
}

std::unique_ptr<PrintJob> ScriptedPrinting::StartJob(const std::string& title) {
  documents.push_back({title, {}, false});
  return std::make_unique<ScriptedJob>(*this, documents.size() - 1);
}

void ScriptedPrinting::ShowPreview(PrintedPages& pages) {
  NestedLoop::Run();
  PaperDC paper(millimetres, pixels);
  previewPages = pages.Begin(paper, previewProblem);
  NestedLoop::Run();
  if (previewPages != 0) pages.End(paper);
}

}  // namespace morvane
