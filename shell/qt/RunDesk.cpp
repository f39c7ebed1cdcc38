#include "shell/qt/RunDesk.h"

#include <optional>
#include <utility>

#include <QMainWindow>

#include "drawing/TextCodec.h"
#include "platform/Clipboard.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "platform/WaitCursor.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/RunPane.h"
#include "simulation/Run.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr const char* kTextFormat = "text/plain";
constexpr std::size_t kPiece = std::size_t{1} << 20;
/// A file that is followed is looked at so often.
constexpr int kFollowMilliseconds = 200;
/// A run that is over goes when no box of it is open any more.
constexpr int kRetryMilliseconds = 100;

void Discard(std::shared_ptr<ChartRun> run) {
  QTimer::singleShot(kRetryMilliseconds, [run = std::move(run)]() mutable {
    if (ModalLoop::IsRunning()) Discard(std::move(run));
  });
}

}  // namespace

RunDesk::RunDesk(CommandTarget& target, ActiveChild active, QMainWindow* frame)
    : QObject(frame),
      target(target),
      active(std::move(active)),
      frame(frame),
      pane(new RunPane(
          target, [this] { End(this->active()); }, frame)) {
  frame->addDockWidget(Qt::RightDockWidgetArea, pane);
  tailTimer.setInterval(kFollowMilliseconds);
  connect(&tailTimer, &QTimer::timeout, this, &RunDesk::ReadMore);
}

RunDesk::~RunDesk() = default;

ChartRun* RunDesk::Active() const {
  CChildFrame* child = active();
  return child != nullptr ? child->GetRun().get() : nullptr;
}

CommandState RunDesk::StateOf(unsigned id) const {
  const ChartRun* run = Active();
  switch (id) {
    case ID_SIMULATE: {
      CommandState state = CommandState::Enabled(active() != nullptr);
      state.checked = run != nullptr && run->AsSimulation() != nullptr;
      return state;
    }
    case ID_REPLAY_TRACE:
    case ID_REPLAY_PASTED:
    case ID_FOLLOW_TRACE:
    case ID_RUN_TESTS: return CommandState::Enabled(active() != nullptr);
    case ID_RUN_BACK: return CommandState::Enabled(run != nullptr && run->Shown().Place() > 0);
    case ID_RUN_FORWARD:
    case ID_RUN_CONTINUE: return CommandState::Enabled(run != nullptr && !run->Shown().IsAtEnd());
    default: return CommandState::Enabled(run != nullptr);
  }
}

void RunDesk::Execute(unsigned id) {
  ChartRun* run = Active();
  switch (id) {
    case ID_SIMULATE: return run != nullptr ? End(active()) : Simulate();
    case ID_REPLAY_TRACE: return Replay();
    case ID_REPLAY_PASTED: return ReplayPasted();
    case ID_FOLLOW_TRACE: return Follow();
    case ID_RUN_TESTS: return RunTests();
    default: break;
  }
  if (run == nullptr) return;
  switch (id) {
    case ID_RUN_RESTART: return run->Restart();
    case ID_RUN_BACK: return run->StepBack();
    case ID_RUN_FORWARD: return run->StepForward();
    case ID_RUN_CONTINUE: return run->Continue();
    case ID_RUN_END: return End(active());
    default: return;
  }
}

ChartRun* RunDesk::Begin() {
  CChildFrame* child = active();
  auto* chart = child != nullptr ? dynamic_cast<LayoutMgr*>(child->View()) : nullptr;
  if (chart == nullptr) return nullptr;
  End(child);
  child->SetRun(
      std::make_unique<ChartRun>(*chart, ChartRun::Callbacks{[this, child] {
                                                               if (active() == child)
                                                                 pane->Show(child->GetRun().get());
                                                             },
                                                             [this, child] { End(child); }}));
  return child->GetRun().get();
}

void RunDesk::End(CChildFrame* child) {
  if (child == nullptr || child->GetRun() == nullptr) return;
  if (follower.lock() == child->GetRun()) StopFollowing();
  std::shared_ptr<ChartRun> over = child->TakeRun();
  if (active() == child) pane->Show(nullptr);
  over->End();
  Discard(std::move(over));
}

void RunDesk::StopFollowing() {
  tailTimer.stop();
  tail.reset();
  follower.reset();
}

void RunDesk::ShowReason(const std::string& reason) {
  End(active());
  ShowMessage(reason);
}

void RunDesk::Simulate() {
  ChartRun* run = Begin();
  if (run == nullptr) return;
  const std::string reason = run->Simulate();
  if (!reason.empty()) ShowReason(reason);
}

bool RunDesk::BeginReplay() {
  StopFollowing();
  ChartRun* run = Active() != nullptr ? Active() : Begin();
  if (run == nullptr) return false;
  const std::string reason = run->BeginReplay();
  if (!reason.empty()) ShowReason(reason);
  return reason.empty();
}

void RunDesk::Replay() {
  const std::optional<std::string> path = AskOpenPath({Translate("Traces (*)"), ""});
  if (!path) return;
  TailFile file(*path);
  if (!file.IsOpen()) {
    ShowMessage(ToUtf8(*path) + ": " + file.Reason());
    return;
  }
  if (!BeginReplay()) return;
  const WaitCursor wait;
  ChartRun* run = Active();
  for (std::string piece; file.Read(piece, kPiece); piece.clear()) run->FeedTrace(piece);
  run->FinishTrace();
  run->Refresh();
}

void RunDesk::ReplayPasted() {
  ClipboardError error = ClipboardError::None;
  const std::optional<std::string> text = Service<Clipboard>::Get().Get(kTextFormat, error);
  if (!text || text->empty()) {
    ShowMessage(Translate("There is no text on the clipboard"));
    return;
  }
  if (!BeginReplay()) return;
  ChartRun* run = Active();
  run->FeedTrace(*text);
  run->FinishTrace();
  run->Refresh();
}

/// The run shows the newest line that the file has.
void RunDesk::Follow() {
  const std::optional<std::string> path = AskOpenPath({Translate("Traces (*)"), ""});
  if (!path) return;
  auto file = std::make_unique<TailFile>(*path);
  if (!file->IsOpen()) {
    ShowMessage(ToUtf8(*path) + ": " + file->Reason());
    return;
  }
  if (!BeginReplay()) return;
  tail = std::move(file);
  follower = active()->GetRun();
  tailTimer.start();
  ReadMore();
}

void RunDesk::ReadMore() {
  if (tail == nullptr || ModalLoop::IsRunning()) return;
  // Its chart may have been closed.
  const std::shared_ptr<ChartRun> shown = follower.lock();
  if (shown == nullptr) return StopFollowing();
  std::string piece;
  const bool hasMore = tail->Read(piece, kPiece);
  if (!hasMore && shown->Shown().History().Size() > 0) return;
  shown->FeedTrace(piece);
  shown->CatchUpTrace();
  shown->GoTo(shown->Shown().History().Size());
}

void RunDesk::RunTests() {
  if (Active() == nullptr) Simulate();
  if (Active() != nullptr) pane->ExecuteTests();
}

void RunDesk::OnActivated() { pane->Show(Active()); }

}  // namespace morvane
