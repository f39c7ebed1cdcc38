#pragma once

#include <string>

#include "platform/FileLock.h"
#include "platform/FileStamp.h"
#include "platform/SharedText.h"
#include "recovery/RecoveryRecord.h"

namespace morvane {

class RecoveryWriter;

/// The place of one open chart in the recovery store. Its lock is held as long as the object lives;
/// its text stands there from `Keep` until `Drop`, whatever ends the program in between.
class RecoveryEntry {
 public:
  /// What is known of the chart beside its text.
  struct About {
    std::string path;   ///< of its file; empty if it has none
    std::string title;  ///< of its window
    FileStamp stamp;    ///< of the file as it was read or written last
  };

  /// Takes the place `base`, a path without extension, with its lock. `kept` says that a text
  /// stands there already. The writer has to outlive the entry.
  RecoveryEntry(std::string base, FileLock lock, RecoveryWriter& writer, bool kept);
  /// A text that wasn't dropped stays, or is still written.
  ~RecoveryEntry();
  RecoveryEntry(const RecoveryEntry&) = delete;
  RecoveryEntry& operator=(const RecoveryEntry&) = delete;

  /// Says which file is open; other running copies see it too.
  void Describe(const About& known);
  /// Has the text written, synced, within a second; returns at once.
  void Keep(SharedText text);
  /// Writes the text and returns when it is synced; false when it can't be written.
  bool KeepNow(const SharedText& text);
  /// The chart equals its file, or the user wants it gone: there is nothing to recover.
  void Drop();
  /// A text stands in the store or is on its way there.
  bool IsKept() const { return kept; }

  static std::string TextPath(const std::string& base) { return base + ".chart"; }
  static std::string LockPath(const std::string& base) { return base + ".lock"; }

 private:
  std::string Head() const;

  std::string base;
  FileLock lock;
  RecoveryWriter& writer;
  About about;
  bool kept;
};

}  // namespace morvane
