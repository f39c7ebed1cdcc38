#include "tests/support/Places.h"

namespace morvane {

std::string SourcePath(std::string_view path) {
  return std::string(MORVANE_SOURCES "/").append(path);
}

std::string OutputPath(std::string_view path) {
  return std::string(MORVANE_BUILD "/tests/").append(path);
}

std::string DesignerPath() { return MORVANE_BUILD "/bin/morvane" MORVANE_PROGRAM_END; }

std::string TestToolPath() { return OutputPath("morvane_test_tool" MORVANE_PROGRAM_END); }

}  // namespace morvane
