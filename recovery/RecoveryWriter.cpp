#include "recovery/RecoveryWriter.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/Files.h"

namespace morvane {

RecoveryWriter::RecoveryWriter() : thread([this] { Run(); }) {}

RecoveryWriter::~RecoveryWriter() {
  {
    const std::lock_guard guard(lock);
    ending = true;
  }
  changed.notify_all();
  thread.join();
}

void RecoveryWriter::Add(const std::string& path, Job job) {
  {
    const std::lock_guard guard(lock);
    const auto waiting = jobs.find(path);
    const auto last = written.find(path);
    if (waiting != jobs.end() && !job.isRemoval) {
      job.due = waiting->second.due;
    } else {
      job.due = last != written.end() && !job.isRemoval ? last->second + kPause : Clock::now();
    }
    jobs[path] = std::move(job);
  }
  changed.notify_all();
}

void RecoveryWriter::Put(const std::string& path, std::string head, SharedText text) {
  Add(path, {false, std::move(head), std::move(text), {}});
}

void RecoveryWriter::Remove(const std::string& path) { Add(path, {true, {}, nullptr, {}}); }

bool RecoveryWriter::Do(std::unique_lock<std::mutex>& guard, const std::string& path,
                        const Job& job) {
  busy = true;
  guard.unlock();
  const bool done = job.isRemoval ? RemoveFile(path) : WriteFile(path, job.head, job.text);
  guard.lock();
  busy = false;
  if (job.isRemoval) {
    written.erase(path);
  } else {
    written[path] = Clock::now();
    failing = !done;
  }
  changed.notify_all();
  return done;
}

bool RecoveryWriter::PutNow(const std::string& path, const std::string& head,
                            const SharedText& text) {
  std::unique_lock guard(lock);
  jobs.erase(path);
  changed.wait(guard, [this] { return !busy; });
  return Do(guard, path, {false, head, text, {}});
}

void RecoveryWriter::Finish() {
  std::unique_lock guard(lock);
  hurry = true;
  changed.notify_all();
  changed.wait(guard, [this] { return jobs.empty() && !busy; });
  hurry = false;
}

void RecoveryWriter::Run() {
  std::unique_lock guard(lock);
  const auto isEarlier = [](const auto& a, const auto& b) { return a.second.due < b.second.due; };
  while (!jobs.empty() || !ending) {
    if (jobs.empty() || busy) {
      changed.wait(guard);
      continue;
    }
    const auto next = std::ranges::min_element(jobs, isEarlier);
    if (!ending && !hurry && Clock::now() < next->second.due) {
      const Clock::time_point due = next->second.due;
      changed.wait_until(guard, due);
      continue;
    }
    const auto job = jobs.extract(next);
    Do(guard, job.key(), job.mapped());
  }
}

bool RecoveryWriter::WriteFile(const std::string& path, const std::string& head,
                               const SharedText& text) {
  try {
    return ReplaceWholeFile(path, text != nullptr ? head + *text : head).Ok();
  } catch (const std::exception&) {
    return false;  // without memory for the copy the former file stays
  }
}

}  // namespace morvane
