#include "shell/HelpCommands.h"

#include <string>

#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "platform/MessageBox.h"
#include "platform/ShellOpen.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/MenuTable.h"

bool HelpCommands::Run(unsigned id) {
  switch (id) {
    case ID_USER_GUIDE: OpenDocument("Docs/Morvane-UserGuide.pdf"); return true;
    case ID_TUTORIAL: OpenDocument("Docs/Morvane-Tutorial.pdf"); return true;
    case ID_WEB_PAGE: OpenWebPage(); return true;
    default: return false;
  }
}

void HelpCommands::OpenDocument(const char* name) {
  const std::string path = FindPath(GetInstallFolder() + name);
  switch (Service<ShellOpen>::Get().OpenFile(path)) {
    case OpenResult::NotFound: ShowMessage(LoadText(IDS_HELP_NOT_FOUND)); break;
    case OpenResult::NoProgram: ShowMessage(LoadText(IDS_HELP_NO_VIEWER) + path); break;
    case OpenResult::Opened:
    case OpenResult::Failed: break;
  }
}

void HelpCommands::OpenWebPage() {
  const std::string address(kWebAddress);
  if (Service<ShellOpen>::Get().OpenWeb(address) == OpenResult::NoProgram) {
    ShowMessage(LoadText(IDS_WEB_NO_BROWSER) + address);
  }
}
