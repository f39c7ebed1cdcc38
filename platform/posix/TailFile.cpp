#include "platform/TailFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/SystemError.h"

namespace morvane {

namespace {

int Number(std::intptr_t file) { return static_cast<int>(file); }

}  // namespace

TailFile::TailFile(const std::string& path)
    : file(path == "-" ? ::dup(STDIN_FILENO)
                       : ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
  if (!IsOpen()) reason = SystemErrorText(errno);
  struct stat about {};
  if (IsOpen() && ::fstat(Number(file), &about) == 0 && S_ISDIR(about.st_mode)) {
    reason = SystemErrorText(EISDIR);
    ::close(Number(file));
    file = kNone;
  }
}

TailFile::~TailFile() {
  if (IsOpen()) ::close(Number(file));
}

bool TailFile::Read(std::string& bytes, std::size_t most) {
  if (!IsOpen()) return false;
  const std::size_t before = bytes.size();
  bytes.resize(before + most);
  ssize_t count = 0;
  do {
    count = ::read(Number(file), bytes.data() + before, most);
  } while (count < 0 && errno == EINTR);
  bytes.resize(before + (count > 0 ? static_cast<std::size_t>(count) : 0));
  if (count < 0 && errno != EAGAIN) reason = SystemErrorText(errno);
  return count > 0;
}

}  // namespace morvane
