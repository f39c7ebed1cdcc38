#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "platform/SharedText.h"

namespace morvane {

/// Writes files of the recovery store on a thread of its own, so that nobody waits for the disk.
/// Each file is written whole and synced before it takes the place of the former one. The texts of
/// one file are written in their order; one that was overtaken before its turn is left out.
class RecoveryWriter {
 public:
  RecoveryWriter();
  /// Writes what is left to write.
  ~RecoveryWriter();
  RecoveryWriter(const RecoveryWriter&) = delete;
  RecoveryWriter& operator=(const RecoveryWriter&) = delete;

  /// Has `head` and then `text` written to a file; returns at once.
  void Put(const std::string& path, std::string head, SharedText text);
  /// The same at once; false when the file can't be written.
  bool PutNow(const std::string& path, const std::string& head, const SharedText& text);
  /// Has a file taken away, and what was still to be written to it; returns at once.
  void Remove(const std::string& path);
  /// The last text could not be written.
  bool IsFailing() const { return failing; }
  /// Returns when nothing is left to write.
  void Finish();

 private:
  using Clock = std::chrono::steady_clock;
  /// A file that is changed all the time is written this often.
  static constexpr std::chrono::milliseconds kPause{300};

  struct Job {
    bool isRemoval = false;
    std::string head;
    SharedText text;
    Clock::time_point due;
  };

  void Run();
  void Add(const std::string& path, Job job);
  /// Does a job without the lock; it is held before and after, and nobody else writes meanwhile.
  bool Do(std::unique_lock<std::mutex>& guard, const std::string& path, const Job& job);
  static bool WriteFile(const std::string& path, const std::string& head, const SharedText& text);

  std::mutex lock;
  std::condition_variable changed;
  std::map<std::string, Job> jobs;
  std::map<std::string, Clock::time_point> written;  ///< when each file was written last
  bool busy = false;                                 ///< somebody writes or removes a file
  bool hurry = false;                                ///< jobs don't wait until they are due
  bool ending = false;
  std::atomic<bool> failing = false;
  std::thread thread;
};

}  // namespace morvane
