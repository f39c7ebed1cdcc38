#include "codegen/CRedirect.h"

#include <array>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

#include "codegen/ToolInbox.h"
#include "platform/Process.h"
#include "platform/UiThread.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

using namespace std::chrono_literals;

constexpr auto kPauseAfterSignal = 500ms;
constexpr auto kPause = 100ms;
/// So often the watcher looks whether it was stopped; of the end of the tool it hears at once.
constexpr auto kWatchTurn = 50ms;
constexpr std::size_t kChunkSize = 4096;

/// A thread for which the wait can have a limit.
class Worker {
 public:
  template <class Body>
  void Start(Body body) {
    std::promise<void> promise;
    done = promise.get_future();
    thread = std::thread([body = std::move(body), promise = std::move(promise)]() mutable {
      body();
      promise.set_value();
    });
  }
  /// Waits for the thread, if there is one, and forgets it.
  void WaitAndForget(std::chrono::milliseconds limit) {
    if (!thread.joinable()) return;
    if (done.wait_for(limit) == std::future_status::ready) {
      thread.join();
    } else {
      thread.detach();
    }
  }

 private:
  std::thread thread;
  std::future<void> done;
};

}  // namespace

std::atomic<bool> CRedirect::running = false;

/// One run of a tool. Its threads own it too, so that one that is forgotten finds all in place.
struct CRedirect::Run {
  std::unique_ptr<Process> process;
  std::shared_ptr<ToolInbox> inbox;
  std::atomic<bool> stopped = false;
  Worker outputReader;
  Worker errorReader;
  Worker watcher;

  void Read(Process::Stream stream, ToolInbox::Kind kind) {
    std::array<char, kChunkSize> chunk;
    while (!stopped) {
      const std::size_t count = process->Read(stream, chunk);
      if (count == 0) return;
      inbox->Add(kind, {chunk.data(), count});
    }
  }
  void Watch() {
    while (running && !stopped) {
      if (!process->WaitForEnd(kWatchTurn)) continue;
      // The flag belongs to a later run by now if this one was stopped meanwhile.
      if (!stopped) running = false;
    }
    inbox->Add(ToolInbox::Kind::Exited, {});
  }
};

CRedirect::CRedirect(std::chrono::milliseconds longestWait) : longestWait(longestWait) {
  running = false;
}

CRedirect::~CRedirect() { StopTool(); }

bool CRedirect::LaunchTool(const std::string& commandLine, bool showWindow) {
  Stop(Pauses::LeftOut);
  auto process = Service<Processes>::Get().Start(commandLine, showWindow);
  if (process == nullptr) {
    ReportFailure(commandLine);
    return false;
  }
  run = std::make_shared<Run>();
  run->process = std::move(process);
  run->inbox = std::make_shared<ToolInbox>(Service<UiThread>::Get(),
                                           [this](ToolInbox::Kind kind, const std::string& text) {
                                             switch (kind) {
                                               case ToolInbox::Kind::Output:
                                                 OnToolOutput(text);
                                                 break;
                                               case ToolInbox::Kind::Error:
                                                 OnToolError(text);
                                                 break;
                                               case ToolInbox::Kind::Exited: OnToolExited(); break;
                                             }
                                           });
  running = true;
  if (!StartThreads()) {
    Stop(Pauses::LeftOut);
    ReportFailure(commandLine);
    return false;
  }
  OnToolStarted(commandLine);
  return true;
}

bool CRedirect::StartThreads() {
  try {
    run->outputReader.Start(
        [run = run] { run->Read(Process::Stream::Output, ToolInbox::Kind::Output); });
    run->errorReader.Start(
        [run = run] { run->Read(Process::Stream::Error, ToolInbox::Kind::Error); });
    run->watcher.Start([run = run] { run->Watch(); });
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

void CRedirect::ReportFailure(const std::string& commandLine) {
  OnToolOutput(Said("Unable to start %1", {commandLine}) + "\n");
}

std::optional<ProcessEnd> CRedirect::ToolEnd() const {
  return run != nullptr ? run->process->End() : std::nullopt;
}

void CRedirect::StopTool() { Stop(Pauses::Kept); }

void CRedirect::Stop(Pauses pauses) {
  const auto rest = [pauses](std::chrono::milliseconds time) {
    if (pauses == Pauses::Kept) Service<Processes>::Get().Sleep(time);
  };
  // From here on nothing of this run reaches the object.
  const std::shared_ptr<Run> ended = std::exchange(run, nullptr);
  running = false;
  if (ended != nullptr) {
    ended->stopped = true;
    ended->inbox->Close();
    ended->process->SignalStop();
  }
  rest(kPauseAfterSignal);
  if (ended != nullptr) {
    ended->watcher.WaitAndForget(longestWait);
    ended->process->CloseInherited();
  }
  rest(kPause);
  if (ended != nullptr) ended->process->CloseOwn();
  rest(kPause);
  if (ended != nullptr) {
    ended->outputReader.WaitAndForget(longestWait);
    ended->errorReader.WaitAndForget(longestWait);
  }
  rest(kPause);
  if (ended == nullptr || ended->process->WaitForEnd(std::chrono::milliseconds::zero())) return;
  ended->process->Terminate();
  ended->process->WaitForEnd(longestWait);
}

}  // namespace morvane
