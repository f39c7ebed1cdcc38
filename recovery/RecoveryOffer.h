#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/FileStamp.h"
#include "recovery/RecoveryEntry.h"

namespace morvane {

/// Unsaved work that an earlier run of the program left behind. It holds the lock of its entry, so
/// that no other running copy offers the same; an offer that goes without its entry being taken or
/// dropped leaves the work where it is.
struct RecoveryOffer {
  std::string path;         ///< of the chart's file; empty for a chart that was never saved
  std::string title;        ///< of its window
  FileStamp stamp;          ///< of the file that the work goes on from
  std::int64_t time = 0;    ///< of the last change, seconds since 1970
  std::string text;         ///< the whole model text, with LF between the lines
  std::string difference;   ///< how much differs from the file, for the user
  std::string crashReport;  ///< path of the report of the crash; empty if there is none
  std::unique_ptr<RecoveryEntry> entry;
};

}  // namespace morvane
