#include "recovery/RecoveryStore.h"

#include <algorithm>
#include <chrono>

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/ThisProcess.h"
#include "recovery/ChartDifference.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::string_view kChart = ".chart";
constexpr std::string_view kLock = ".lock";
constexpr std::string_view kSession = ".session";
constexpr std::string_view kCrash = ".crash";
constexpr const char* kLastWindows = "last.windows";
constexpr const char* kPlace = "Halvern/Morvane/recovery";
/// Reports of earlier crashes that stay for whoever looks into them.
constexpr std::size_t kKeptReports = 5;

/// The time, so that ids sort by it, the process, and a number in the process.
std::string NewSessionId() {
  using std::chrono::milliseconds;
  static int sessions = 0;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::to_string(std::chrono::duration_cast<milliseconds>(now).count()) + '-' +
         std::to_string(ProcessNumber()) + '-' + std::to_string(++sessions);
}

/// Nobody else reads the user's charts there.
std::string MadeFolder(const std::string& folder) {
  return !folder.empty() && MakePrivateFolder(folder) ? folder : std::string();
}

/// The text of the file at a path as a model text; empty if there is none.
std::string FileText(const std::string& path) {
  std::string bytes;
  if (path.empty() || !ReadWholeFile(path, bytes).Ok()) return {};
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
    text += bytes[i];
  }
  return text;
}

}  // namespace

std::string RecoveryStore::DefaultFolder() {
  const std::string state = UserStateFolder();
  return state.empty() ? state : state + '/' + kPlace;
}

RecoveryStore::RecoveryStore(const std::string& wanted)
    : folder(MadeFolder(wanted)), session(NewSessionId()) {
  if (folder.empty()) return;
  sessionLock = FileLock::Take(Base(session + std::string(kSession)));
  RemoveOldReports();
}

RecoveryStore::~RecoveryStore() = default;

std::vector<std::string> RecoveryStore::NamesWith(std::string_view extension) const {
  std::vector<std::string> names;
  if (folder.empty()) return names;
  for (std::string& name : NamesIn(folder)) {
    if (!name.ends_with(extension)) continue;
    name.resize(name.size() - extension.size());
    names.push_back(std::move(name));
  }
  // Ids begin with the time: the latest first.
  std::ranges::sort(names, std::greater<>());
  return names;
}

bool RecoveryStore::IsOwn(std::string_view name) const {
  return name == session || name.starts_with(session + '-');
}

std::unique_ptr<RecoveryEntry> RecoveryStore::NewEntry() {
  if (folder.empty()) return nullptr;
  const std::string base = Base(session + '-' + std::to_string(++lastEntry));
  FileLock lock = FileLock::Take(RecoveryEntry::LockPath(base));
  if (!lock.Held()) return nullptr;
  return std::make_unique<RecoveryEntry>(base, std::move(lock), writer, false);
}

bool RecoveryStore::ReadOffer(const std::string& name, RecoveryOffer& offer) {
  const std::string base = Base(name);
  FileLock lock = FileLock::Take(RecoveryEntry::LockPath(base));
  if (!lock.Held()) return false;
  std::string bytes;
  if (!ReadWholeFile(RecoveryEntry::TextPath(base), bytes).Ok()) return false;
  // It is held now, and yet nobody has its chart open.
  lock.Write("");
  RecoveryRecord record = RecoveryRecord::Parse(std::move(bytes));
  offer.entry = std::make_unique<RecoveryEntry>(base, std::move(lock), writer, true);
  const std::string present = FileText(record.path);
  if (present == record.text) {
    offer.entry->Drop();
    return false;
  }
  offer.difference = present.empty() ? LoadText(IDS_NEVER_SAVED)
                                     : ChartDifference::Between(present, record.text).Text();
  offer.path = std::move(record.path);
  offer.title = std::move(record.title);
  offer.stamp = record.stamp;
  offer.time = record.time;
  offer.text = std::move(record.text);
  const std::string report = Base(name.substr(0, name.rfind('-')) + std::string(kCrash));
  if (IsThere(report)) offer.crashReport = report;
  return true;
}

std::vector<RecoveryOffer> RecoveryStore::TakeOffers() {
  std::vector<RecoveryOffer> offers;
  for (const std::string& name : NamesWith(kChart)) {
    RecoveryOffer offer;
    if (!IsOwn(name) && ReadOffer(name, offer)) offers.push_back(std::move(offer));
  }
  for (const std::string& name : NamesWith(kLock)) {
    // Of charts that had nothing unsaved
    if (IsOwn(name) || IsThere(RecoveryEntry::TextPath(Base(name)))) continue;
    FileLock::Take(RecoveryEntry::LockPath(Base(name))).Remove();
  }
  std::ranges::stable_sort(offers, std::greater<>(), &RecoveryOffer::time);
  return offers;
}

bool RecoveryStore::IsOpenElsewhere(const std::string& path) const {
  const std::string wanted = RecoveryRecord::Escape(FullPath(path)) + '\n';
  for (const std::string& name : NamesWith(kLock)) {
    const std::string file = RecoveryEntry::LockPath(Base(name));
    std::string open;
    if (IsOwn(name) || !ReadWholeFile(file, open).Ok() || open != wanted) continue;
    if (FileLock::IsHeld(file)) return true;
  }
  return false;
}

void RecoveryStore::RememberWindows(const SessionRecord& windows) {
  sessionLock.Write(windows.ToText());
}

SessionRecord RecoveryStore::TakeCrashedWindows() {
  SessionRecord all;
  for (const std::string& name : NamesWith(kSession)) {
    const std::string file = Base(name + std::string(kSession));
    if (IsOwn(name)) continue;
    FileLock lock = FileLock::Take(file);
    std::string text;
    if (!lock.Held() || !ReadWholeFile(file, text).Ok()) continue;
    all.Merge(SessionRecord::Parse(text));
    lock.Remove();
  }
  return all;
}

void RecoveryStore::EndSession(const SessionRecord& windows) {
  if (!folder.empty()) ReplaceWholeFile(Base(kLastWindows), windows.ToText());
  sessionLock.Remove();
}

SessionRecord RecoveryStore::LastWindows() const {
  std::string text;
  if (folder.empty() || !ReadWholeFile(Base(kLastWindows), text).Ok()) return {};
  return SessionRecord::Parse(text);
}

std::string RecoveryStore::CrashReportPath() const {
  return folder.empty() ? std::string() : Base(session + std::string(kCrash));
}

void RecoveryStore::RemoveOldReports() const {
  const std::vector<std::string> reports = NamesWith(kCrash);
  for (std::size_t i = kKeptReports; i < reports.size(); ++i) {
    RemoveFile(Base(reports[i] + std::string(kCrash)));
  }
}

}  // namespace morvane
