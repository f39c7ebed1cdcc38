#include "shell/qt/DesktopSession.h"

#include <array>
#include <shlobj.h>
#include <windows.h>

#include <QGuiApplication>
#include <QWidget>

#include "platform/FileSystem.h"
#include "platform/Files.h"
#include "platform/windows/FileType.h"

namespace morvane {

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr const char* kFontFolder = "QT_QPA_FONTDIR";
constexpr const char* kBuildFile = "CMakeCache.txt";

/// The program lies where it was built, and may be gone tomorrow.
bool IsInBuildFolder(const std::string& program) {
  return IsThere(FolderOf(FolderOf(program)) + '/' + kBuildFile);
}

}  // namespace

bool IsDisplayNamed() { return true; }

void UseNoScreen() {
  // With all fonts of the system, whose letters it draws as elsewhere; it takes no screen for that.
  if (!qEnvironmentVariableIsSet(kPlatform)) qputenv(kPlatform, "windows:fontengine=freetype");
  // Where a user has it ask no system for fonts, it reads those of a folder.
  if (qEnvironmentVariableIsSet(kFontFolder)) return;
  std::array<wchar_t, MAX_PATH> folder = {};
  if (SHGetFolderPathW(nullptr, CSIDL_FONTS, nullptr, SHGFP_TYPE_CURRENT, folder.data()) == S_OK) {
    qputenv(kFontFolder, QString::fromWCharArray(folder.data()).toLocal8Bit());
  }
}

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
