#pragma once

#include <memory>
#include <string>
#include <vector>

#include "recovery/RecoveryOffer.h"
#include "recovery/RecoveryWriter.h"
#include "recovery/SessionRecord.h"

namespace morvane {

/// The folder in which unsaved work outlives the program, whatever ends it, and in which running
/// copies see what the others have open. Each run of the program is a session with an id of its own
/// that its files begin with: a record of its windows, a crash report, and for each open chart a
/// lock file and the unsaved text. What no running copy holds the lock of was left behind.
class RecoveryStore {
 public:
  /// The user's own: below `UserStateFolder`; empty without one.
  static std::string DefaultFolder();

  /// Begins a session in a folder, which is made where it is missing. Without a folder that can be
  /// written to, nothing is kept and nothing found.
  explicit RecoveryStore(const std::string& folder);
  ~RecoveryStore();
  RecoveryStore(const RecoveryStore&) = delete;
  RecoveryStore& operator=(const RecoveryStore&) = delete;

  /// A place for one open chart; null where none can be had. The store has to outlive it.
  std::unique_ptr<RecoveryEntry> NewEntry();
  /// The unsaved work that was left behind, the latest first. Entries whose text is that of their
  /// file are taken away.
  std::vector<RecoveryOffer> TakeOffers();
  /// What is handed over is kept; false while the disk or the folder takes nothing.
  bool IsKeeping() const { return !folder.empty() && !writer.IsFailing(); }
  /// Another running copy has the chart of that file open.
  bool IsOpenElsewhere(const std::string& path) const;

  /// Remembers which windows are open, in case this session ends by a crash.
  void RememberWindows(const SessionRecord& windows);
  /// The windows of sessions that did not end as they should; each is told once.
  SessionRecord TakeCrashedWindows();
  /// The program ends as it should, with these windows: nothing comes back by itself.
  void EndSession(const SessionRecord& windows);
  /// The windows of the session that ended last as it should.
  SessionRecord LastWindows() const;

  /// Where a crash of this session is reported; empty without a folder.
  std::string CrashReportPath() const;
  RecoveryWriter& Writer() { return writer; }

 private:
  std::string Base(const std::string& name) const { return folder + '/' + name; }
  std::vector<std::string> NamesWith(std::string_view extension) const;
  bool IsOwn(std::string_view name) const;
  bool ReadOffer(const std::string& name, RecoveryOffer& offer);
  void RemoveOldReports() const;

  std::string folder;
  std::string session;
  FileLock sessionLock;
  int lastEntry = 0;
  RecoveryWriter writer;
};

}  // namespace morvane
