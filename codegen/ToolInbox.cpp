#include "codegen/ToolInbox.h"

#include <algorithm>
#include <utility>

#include "platform/UiThread.h"

namespace morvane {

ToolInbox::ToolInbox(UiThread& ui, Receiver receiver) : ui(&ui), receiver(std::move(receiver)) {}

void ToolInbox::Add(Kind kind, std::string_view text) {
  const std::lock_guard guard(lock);
  if (ui == nullptr) return;
  reports.push_back({kind, std::string(text)});
  size += text.size();
  DropOldest();
  if (std::exchange(posted, true)) return;
  ui->Post([self = shared_from_this()] { self->Deliver(); });
}

void ToolInbox::DropOldest() {
  while (size - reports.front().text.size() >= kCapacity) {
    size -= reports.front().text.size();
    // The end of a run is news that no output pushes out.
    const bool isExit = reports.front().kind == Kind::Exited;
    if (isExit) reports.push_back(std::move(reports.front()));
    reports.pop_front();
  }
}

void ToolInbox::Close() {
  {
    const std::lock_guard guard(lock);
    ui = nullptr;
    reports.clear();
    size = 0;
  }
  receiver = nullptr;
}

void ToolInbox::Deliver() {
  std::deque<Report> taken;
  {
    const std::lock_guard guard(lock);
    taken.swap(reports);
    size = 0;
    posted = false;
  }
  for (auto next = taken.begin(); next != taken.end();) {
    Report joined = std::move(*next++);
    for (; next != taken.end() && next->kind == joined.kind; ++next) joined.text += next->text;
    // Whoever receives a report may close the box.
    if (receiver) receiver(joined.kind, joined.text);
  }
}

}  // namespace morvane
