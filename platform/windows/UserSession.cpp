#include "platform/windows/UserSession.h"

#include <windows.h>

#include "platform/windows/SystemHandle.h"

namespace morvane {

namespace {

bool IsElevated() {
  HANDLE opened = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return false;
  const SystemHandle token(opened);
  TOKEN_ELEVATION elevation = {};
  DWORD size = sizeof elevation;
  return GetTokenInformation(token.Get(), TokenElevation, &elevation, size, &size) != 0 &&
         elevation.TokenIsElevated != 0;
}

}  // namespace

std::string UserSessionName() {
  DWORD session = 0;
  ProcessIdToSessionId(GetCurrentProcessId(), &session);
  const std::string name = "session-" + std::to_string(session);
  return IsElevated() ? name + "-elevated" : name;
}

}  // namespace morvane
