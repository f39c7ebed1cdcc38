#include "recovery/RecoveryEntry.h"

#include <ctime>
#include <utility>

#include "recovery/RecoveryWriter.h"

namespace morvane {

RecoveryEntry::RecoveryEntry(std::string base, FileLock lock, RecoveryWriter& writer, bool kept)
    : base(std::move(base)), lock(std::move(lock)), writer(writer), kept(kept) {}

RecoveryEntry::~RecoveryEntry() {
  // A text that stands in the store needs its lock file as little as the lock itself.
  if (!kept) lock.Remove();
}

void RecoveryEntry::Describe(const About& known) {
  const bool isOther = known.path != about.path;
  about = known;
  if (isOther) lock.Write(RecoveryRecord::Escape(about.path) + '\n');
}

std::string RecoveryEntry::Head() const {
  RecoveryRecord record;
  record.path = about.path;
  record.title = about.title;
  record.stamp = about.stamp;
  record.time = std::time(nullptr);
  return record.Head();
}

void RecoveryEntry::Keep(SharedText text) {
  kept = true;
  writer.Put(TextPath(base), Head(), std::move(text));
}

bool RecoveryEntry::KeepNow(const SharedText& text) {
  kept = true;
  return writer.PutNow(TextPath(base), Head(), text);
}

void RecoveryEntry::Drop() {
  if (!std::exchange(kept, false)) return;
  writer.Remove(TextPath(base));
}

}  // namespace morvane
