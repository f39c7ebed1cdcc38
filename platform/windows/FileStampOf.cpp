#include <windows.h>

#include "platform/FileStamp.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFile.h"

namespace morvane {

namespace {

/// From the beginning of the year 1601, from which the system counts, to that of 1970, in its steps
/// of 100 nanoseconds.
constexpr std::int64_t kStepsTo1970 = 116'444'736'000'000'000;
constexpr std::int64_t kNanosecondsPerStep = 100;

}  // namespace

FileStamp FileStamp::Of(const std::string& path) {
  WindowsFile::Facts facts;
  if (path.empty() || NamesDevice(path)) return {};
  if (WindowsFile::Ask(WidePath(path), facts) != 0) return {};
  if ((facts.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
  return {true, facts.volume, facts.number, facts.size,
          (facts.time - kStepsTo1970) * kNanosecondsPerStep};
}

}  // namespace morvane
