#include "shell/qt/StartRequests.h"

#include "persistence/CDocument.h"
#include "platform/ThisProgram.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/WindowActivation.h"

namespace morvane {

namespace {

/// A window that is not free is asked again so often.
constexpr int kRetryMilliseconds = 50;

/// The program shows one chart that nothing was done with.
bool HasOnlyAnEmptyChart(const DocumentManager& manager) {
  if (manager.Documents().size() != 1) return false;
  CDocument& document = *manager.Documents().front();
  return document.GetPathName().empty() && !document.IsModified();
}

}  // namespace

StartRequests::StartRequests() {
  timer.setInterval(kRetryMilliseconds);
  connect(&timer, &QTimer::timeout, this, [this] { CarryOut(); });
}

void StartRequests::Add(const InstanceRequest& request) {
  waiting.push_back(request);
  if (frame == nullptr) return;
  // What the window waits for comes forward with it.
  if (frame->IsInDialog()) BringForward(*frame, request);
  timer.start();
}

void StartRequests::Serve(CMainFrame& window) {
  frame = &window;
  if (!waiting.empty()) timer.start();
}

void StartRequests::CarryOut() {
  // A window that was closed meanwhile takes nothing more.
  while (!waiting.empty() && frame->isVisible() && !frame->IsBusy()) {
    const InstanceRequest request = waiting.front();
    waiting.pop_front();
    CarryOut(request);
  }
  if (waiting.empty()) timer.stop();
}

void StartRequests::CarryOut(const InstanceRequest& request) {
  BringForward(*frame, request);
  DocumentManager& manager = frame->Manager();
  if (!request.file.empty()) {
    manager.OpenDocumentFile(request.file);
  } else if (!HasOnlyAnEmptyChart(manager)) {
    manager.NewDocument();
  }
}

void StartRequests::HandOn() {
  timer.stop();
  for (const InstanceRequest& request : waiting) StartProgramAnew(request.file);
  waiting.clear();
}

}  // namespace morvane
