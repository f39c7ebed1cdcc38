#pragma once

#include <string>

#include "platform/windows/SystemHandle.h"

namespace morvane {

/// Keeps other processes out, in all sessions of the machine, for as long as it lives. One that
/// can't be had within a second is gone without.
class SystemMutex {
 public:
  explicit SystemMutex(std::string name);
  ~SystemMutex();
  SystemMutex(const SystemMutex&) = delete;
  SystemMutex& operator=(const SystemMutex&) = delete;

 private:
  SystemHandle mutex;
  bool isMine = false;
};

}  // namespace morvane
