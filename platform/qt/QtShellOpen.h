#pragma once

#include "platform/ShellOpen.h"

namespace morvane {

/// Opens files and addresses by Qt.
class QtShellOpen : public ShellOpen {
 public:
  OpenResult OpenFile(const std::string& path) override;
  OpenResult OpenWeb(const std::string& address) override;
};

}  // namespace morvane
