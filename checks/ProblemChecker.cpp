#include "checks/ProblemChecker.h"

#include <utility>

#include "machine/MachineBuilder.h"
#include "platform/UiThread.h"

namespace morvane {

ProblemChecker::ProblemChecker() : thread([this] { Run(); }) {}

ProblemChecker::~ProblemChecker() {
  {
    const std::lock_guard guard(lock);
    ending = true;
  }
  changed.notify_all();
  thread.join();
}

void ProblemChecker::Check(const void* chart, SharedText text, Done done) {
  {
    const std::lock_guard guard(lock);
    waiting[chart] = {std::move(text), std::move(done)};
  }
  changed.notify_all();
}

void ProblemChecker::Run() {
  std::unique_lock guard(lock);
  while (true) {
    changed.wait(guard, [this] { return ending || !waiting.empty(); });
    if (ending) return;
    const auto next = waiting.extract(waiting.begin());
    guard.unlock();
    const Request& request = next.mapped();
    BuiltMachine built = MachineBuilder::FromText(*request.text);
    Service<UiThread>::Get().Post(
        [done = request.done, problems = std::move(built.problems)] { done(problems); });
    guard.lock();
  }
}

}  // namespace morvane
