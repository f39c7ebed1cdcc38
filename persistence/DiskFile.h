#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileStamp.h"

namespace morvane {

/// The file of an open chart as it was when this program read or wrote it last, and what has become
/// of it on the disk since.
class DiskFile {
 public:
  enum class State { Same, Changed, Gone };

  /// The file has this text now, with LF between the lines, and this stamp.
  void Remember(const std::string& file, const FileStamp& asOf, std::string_view text);
  /// The same for a file of which only the stamp is known.
  void RememberStamp(const std::string& file, const FileStamp& asOf);
  /// There is no file.
  void Forget();

  const FileStamp& Stamp() const { return stamp; }
  /// As it was at the last look.
  State Present() const { return state; }
  /// Looks at the disk: a file that was only touched counts as the same.
  State Look();
  /// Takes what is on the disk as known: it isn't told again.
  void Accept();

 private:
  State StateOf(const FileStamp& now);

  std::string path;
  FileStamp stamp;
  std::optional<std::size_t> hash;  ///< of the text
  State state = State::Same;
};

}  // namespace morvane
