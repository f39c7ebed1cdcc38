#include "platform/FileStamp.h"

#include <sstream>
#include <sys/stat.h>

namespace morvane {

FileStamp FileStamp::Of(const std::string& path) {
  struct stat status {};
  if (path.empty() || stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  constexpr std::int64_t perSecond = 1'000'000'000;
  return {true, status.st_dev, status.st_ino, status.st_size,
          status.st_mtim.tv_sec * perSecond + status.st_mtim.tv_nsec};
}

std::string FileStamp::ToLine() const {
  std::ostringstream line;
  line << exists << ' ' << device << ' ' << number << ' ' << size << ' ' << time;
  return line.str();
}

FileStamp FileStamp::FromLine(const std::string& line) {
  std::istringstream in(line);
  FileStamp stamp;
  in >> stamp.exists >> stamp.device >> stamp.number >> stamp.size >> stamp.time;
  return in ? stamp : FileStamp{};
}

}  // namespace morvane
