#pragma once

#include <memory>

#include "drawing/qt/QtTextBreaks.h"
#include "platform/Clipboard.h"
#include "platform/Profile.h"
#include "platform/qt/QtDialogHost.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtFileWatch.h"
#include "platform/qt/QtMessageBoxes.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/QtPopupMenus.h"
#include "platform/qt/QtPrinting.h"
#include "platform/qt/QtProgressBoxes.h"
#include "platform/qt/QtScriptEngine.h"
#include "platform/qt/QtShellOpen.h"
#include "platform/qt/QtTextSearch.h"
#include "platform/qt/QtUiThread.h"
#include "platform/qt/QtWaitCursors.h"

namespace morvane {

/// All services of the desktop by Qt, in use for as long as the object lives. It has to go before
/// the application object.
class QtServices {
 public:
  enum class Use {
    Window,  ///< with the user's settings, and boxes on the screen
    Job      ///< without a screen and without a trace in the settings
  };

  explicit QtServices(Use use);
  ~QtServices();
  QtServices(const QtServices&) = delete;
  QtServices& operator=(const QtServices&) = delete;

 private:
  QtDialogHost dialogHost;
  QtDialogs dialogs;
  QtFileWatch fileWatch;
  QtMessageBoxes messageBoxes;
  QtTextBreaks textBreaks;
  QtPictures pictures;
  QtPopupMenus popupMenus;
  QtPrinting printing;
  QtProgressBoxes progressBoxes;
  QtScriptEngines scriptEngines;
  QtTextSearch textSearch;
  QtUiThread uiThread;
  QtShellOpen shellOpen;
  QtWaitCursors waitCursors;
  std::unique_ptr<Clipboard> clipboard;
  std::unique_ptr<Profile> profile;
};

}  // namespace morvane
