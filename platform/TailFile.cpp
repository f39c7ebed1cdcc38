#include "platform/TailFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/SystemError.h"

namespace morvane {

TailFile::TailFile(const std::string& path)
    : file(path == "-" ? ::dup(STDIN_FILENO)
                       : ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
  if (file < 0) reason = SystemErrorText(errno);
  struct stat about {};
  if (file >= 0 && ::fstat(file, &about) == 0 && S_ISDIR(about.st_mode)) {
    reason = SystemErrorText(EISDIR);
    ::close(file);
    file = -1;
  }
}

TailFile::~TailFile() {
  if (file >= 0) ::close(file);
}

bool TailFile::Read(std::string& bytes, std::size_t most) {
  if (file < 0) return false;
  const std::size_t before = bytes.size();
  bytes.resize(before + most);
  ssize_t count = 0;
  do {
    count = ::read(file, bytes.data() + before, most);
  } while (count < 0 && errno == EINTR);
  bytes.resize(before + (count > 0 ? static_cast<std::size_t>(count) : 0));
  if (count < 0 && errno != EAGAIN) reason = SystemErrorText(errno);
  return count > 0;
}

}  // namespace morvane
