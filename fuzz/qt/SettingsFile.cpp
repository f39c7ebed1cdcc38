#include <QMainWindow>
#include <QToolBar>

#include "fuzz/AgreeingMessageBoxes.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/qt/Application.h"
#include "model/Defaults.h"
#include "persistence/RecentFiles.h"
#include "platform/Files.h"
#include "platform/qt/posix/QtProfile.h"
#include "resources/TextSource.h"
#include "shell/Language.h"
#include "shell/qt/FrameState.h"
#include "tests/support/TempFolder.h"

namespace morvane {

// The bytes of the settings file, as the toolkit reads them: the program starts with whatever
// stands there, and what it then writes is what it reads.

namespace {

const TempFolder& Folder() {
  static const TempFolder folder;
  return folder;
}

void RestoreFrame() {
  QMainWindow frame;
  for (const char* name : {"toolBar", "drawingBar"}) {
    frame.addToolBar(name)->setObjectName(name);
  }
  FrameState::Restore(frame);
  FrameState::Save(frame);
  Require(FrameState::Restore(frame), "what was saved of the frame is not restored");
}

void RequireSame(Profile& profile, const char* key) {
  const std::string value = profile.GetString("Settings", key, "");
  profile.WriteString("Settings", key, value);
  Require(profile.GetString("Settings", key, "-") == value, "a setting changes when it is written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  StartToolkit();
  const AgreeingMessageBoxes boxes;
  const std::string path = Folder().Path("Morvane.ini");
  Require(WriteWholeFile(path, TextOf(data, size)).Ok(), "the settings cannot be written");
  {
    QtProfile profile(path);
    Profile* former = Service<Profile>::Set(&profile);
    LoadLanguage("");
    Defaults::Instance().Load();
    RecentFiles recent;
    recent.Load();
    recent.Add("chart.mrv");
    RestoreFrame();
    for (const char* key : {"StateName", "Entry", "FontName", "FontSize"}) {
      RequireSame(profile, key);
    }
    Service<Profile>::Set(former);
  }
  const std::string entry = Defaults::Instance().Entry;
  QtProfile again(path);
  Profile* former = Service<Profile>::Set(&again);
  Defaults::Instance().Load();
  Service<Profile>::Set(former);
  Require(Defaults::Instance().Entry == entry, "a setting changes in the file");
  TextSource::Use(nullptr);
  return 0;
}

}  // namespace morvane
