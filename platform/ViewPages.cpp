#include "platform/ViewPages.h"

#include "drawing/CDC.h"
#include "platform/CScrollView.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "platform/Wording.h"

namespace morvane {

std::string ViewPages::Title() const { return view.GetTitle(); }

int ViewPages::Begin(CDC& dc, std::string& problem) {
  const bool hasRoom =
      dc.GetDeviceCaps(DeviceCap::HorzRes) > 0 && dc.GetDeviceCaps(DeviceCap::VertRes) > 0 &&
      dc.GetDeviceCaps(DeviceCap::HorzSize) > 0 && dc.GetDeviceCaps(DeviceCap::VertSize) > 0;
  if (!hasRoom) {
    problem = Worded(kNoRoomToPrint);
    return 0;
  }
  view.OnBeginPrinting(dc, info);
  if (info.GetMaxPage() <= kMaxPages) return info.GetMaxPage();
  End(dc);
  problem = Worded(kTooManyPages);
  return 0;
}

void ViewPages::Paint(CDC& dc, int page) {
  info.curPage = page;
  view.OnPrint(dc, info);
}

void ViewPages::End(CDC& dc) { view.OnEndPrinting(dc, info); }

std::string ViewPages::PrintOn(PrintJob& job) {
  std::string problem;
  const int count = Begin(job.DC(), problem);
  if (!problem.empty()) return problem;
  const std::vector<int> sequence = info.Sequence(count);
  for (const int page : sequence) {
    if (!job.StartPage(static_cast<int>(sequence.size()))) break;
    Paint(job.DC(), page);
  }
  End(job.DC());
  return sequence.empty() ? Worded(kNoSuchPages) : job.End();
}

std::string ViewPages::PrintAll() {
  const std::unique_ptr<PrintJob> job = Service<Printing>::Get().StartJob(Title());
  return job != nullptr ? PrintOn(*job) : Worded(kPrinterFails);
}

void ViewPages::RunPrint(bool direct) {
  info = {};
  info.direct = direct;
  const ModalLoop loop;
  if (!view.OnPreparePrinting(info)) return;
  const std::string problem = PrintAll();
  if (!problem.empty()) ShowMessage(problem, MB_ICONHAND);
}

void ViewPages::RunPreview() {
  info = {};
  info.preview = true;
  const ModalLoop loop;
  if (view.OnPreparePrinting(info)) Service<Printing>::Get().ShowPreview(*this);
}

void ViewPages::Print() { ViewPages(view).RunPrint(false); }

void ViewPages::SetUp() { view.OnFilePrintSetup(); }

}  // namespace morvane
