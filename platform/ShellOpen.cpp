#include "platform/ShellOpen.h"

namespace morvane {

namespace {

class NoShell : public ShellOpen {
 public:
  OpenResult OpenFile(const std::string&) override { return OpenResult::NoProgram; }
  OpenResult OpenWeb(const std::string&) override { return OpenResult::NoProgram; }
};

}  // namespace

ShellOpen& ShellOpen::Default() {
  static NoShell service;
  return service;
}

}  // namespace morvane
