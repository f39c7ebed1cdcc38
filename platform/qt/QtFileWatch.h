#pragma once

#include "platform/FileWatch.h"

namespace morvane {

/// Watches files by the notifications of the system.
class QtFileWatch : public FileWatch {
 public:
  std::unique_ptr<Handle> Start(const std::string& path, std::function<void()> touched) override;
};

}  // namespace morvane
