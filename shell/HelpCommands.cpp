#include "shell/HelpCommands.h"

#include <string>

#include "drawing/TextCodec.h"
#include "platform/Files.h"
#include "platform/InstallFolder.h"
#include "platform/MessageBox.h"
#include "platform/ShellOpen.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr const char* kWebAddress = "https://morvane.halvern.example";

/// Opens a document that was installed with the program.
void OpenDocument(const char* name) {
  const std::string path = FindPath(GetInstallFolder() + name);
  switch (Service<ShellOpen>::Get().OpenFile(path)) {
    case OpenResult::NotFound: ShowMessage(LoadText(IDS_HELP_NOT_FOUND)); break;
    case OpenResult::NoProgram: ShowMessage(LoadText(IDS_HELP_NO_VIEWER) + ToUtf8(path)); break;
    case OpenResult::Opened:
    case OpenResult::Failed: break;
  }
}

}  // namespace

void HelpCommands::ShowUserGuide() { OpenDocument("Docs/Morvane-UserGuide.pdf"); }

void HelpCommands::ShowTutorial() { OpenDocument("Docs/Morvane-Tutorial.pdf"); }

void HelpCommands::ShowWebPage() {
  const std::string address(kWebAddress);
  if (Service<ShellOpen>::Get().OpenWeb(address) == OpenResult::NoProgram) {
    ShowMessage(LoadText(IDS_WEB_NO_BROWSER) + address);
  }
}

}  // namespace morvane
