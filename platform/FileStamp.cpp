#include "platform/FileStamp.h"

#include <sstream>

namespace morvane {

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
