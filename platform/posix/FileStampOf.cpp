#include <sys/stat.h>

#include "platform/FileStamp.h"

namespace morvane {

FileStamp FileStamp::Of(const std::string& path) {
  struct stat status {};
  if (path.empty() || stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  constexpr std::int64_t perSecond = 1'000'000'000;
  return {true, status.st_dev, status.st_ino, status.st_size,
          status.st_mtim.tv_sec * perSecond + status.st_mtim.tv_nsec};
}

}  // namespace morvane
