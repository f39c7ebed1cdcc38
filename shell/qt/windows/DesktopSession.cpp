#include "shell/qt/DesktopSession.h"

#include <windows.h>

#include <QGuiApplication>
#include <QWidget>

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/windows/FileType.h"

namespace morvane {

namespace {

constexpr const char* kBuildFile = "CMakeCache.txt";

/// The program lies where it was built, and may be gone tomorrow.
bool IsInBuildFolder(const std::string& program) {
  return IsThere(FolderOf(FolderOf(program)) + '/' + kBuildFile);
}

}  // namespace

bool IsDisplayNamed() { return true; }

void AskDesktopForward(QWidget& window, const InstanceRequest& /*start*/) {
  // Without a screen a window has a number that is none of the system's.
  if (QGuiApplication::platformName() != "windows") return;
  SetForegroundWindow(reinterpret_cast<HWND>(window.winId()));
}

void LetRunningCopyForward() { AllowSetForegroundWindow(ASFW_ANY); }

void RegisterFileTypes() {
  const std::string program = ProgramPath();
  if (program.empty() || IsInBuildFolder(program)) return;
  FileType{".mrv", "mrvfile", "Morvane Document"}.Register(program);
}

}  // namespace morvane
