#include "platform/qt/QtServices.h"

#include "platform/qt/SystemServices.h"

namespace morvane {

QtServices::QtServices(Use use) {
  TextBreaks::Use(&textBreaks);
  Service<Pictures>::Set(&pictures);
  Service<ScriptEngines>::Set(&scriptEngines);
  if (use == Use::Job) {
    profile = std::make_unique<MemoryProfile>();
  } else {
    profile = MakeUserProfile();
    clipboard = MakeSystemClipboard();
    Service<Clipboard>::Set(clipboard.get());
    Service<DialogHost>::Set(&dialogHost);
    Service<Dialogs>::Set(&dialogs);
    Service<FileWatch>::Set(&fileWatch);
    Service<MessageBoxes>::Set(&messageBoxes);
    Service<PopupMenus>::Set(&popupMenus);
    Service<Printing>::Set(&printing);
    Service<ProgressBoxes>::Set(&progressBoxes);
    Service<TextSearch>::Set(&textSearch);
    Service<UiThread>::Set(&uiThread);
    Service<ShellOpen>::Set(&shellOpen);
    Service<WaitCursors>::Set(&waitCursors);
  }
  Service<Profile>::Set(profile.get());
}

QtServices::~QtServices() {
  Service<Profile>::Set(nullptr);
  Service<WaitCursors>::Set(nullptr);
  Service<ShellOpen>::Set(nullptr);
  Service<UiThread>::Set(nullptr);
  Service<TextSearch>::Set(nullptr);
  Service<ProgressBoxes>::Set(nullptr);
  Service<Printing>::Set(nullptr);
  Service<PopupMenus>::Set(nullptr);
  Service<MessageBoxes>::Set(nullptr);
  Service<FileWatch>::Set(nullptr);
  Service<Dialogs>::Set(nullptr);
  Service<DialogHost>::Set(nullptr);
  Service<Clipboard>::Set(nullptr);
  Service<ScriptEngines>::Set(nullptr);
  Service<Pictures>::Set(nullptr);
  TextBreaks::Use(nullptr);
}

}  // namespace morvane
