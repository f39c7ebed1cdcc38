#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/FileStamp.h"

namespace morvane {

/// What a file of the recovery store says of a chart: some lines, and then its text.
struct RecoveryRecord {
  std::string path;       ///< of the chart's file; empty if it has none
  std::string title;      ///< of its window
  std::int64_t time = 0;  ///< of the last change, seconds since 1970
  FileStamp stamp;        ///< of the chart's file as it was read or written last
  std::string text;       ///< the whole model text

  /// The lines in front of the text.
  std::string Head() const;
  /// Reads a whole file. Bytes that are no record are all text, so that nothing is passed over.
  static RecoveryRecord Parse(std::string bytes);

  /// A text as one line without line breaks, and back.
  static std::string Escape(std::string_view text);
  static std::string Unescape(std::string_view line);
};

}  // namespace morvane
