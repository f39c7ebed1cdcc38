#pragma once

namespace morvane {

/// The documents beside the program and the maker's page on the web, each shown by the desktop's
/// own program, or a message that says why not.
class HelpCommands {
 public:
  static void ShowUserGuide();
  static void ShowTutorial();
  static void ShowWebPage();
};

}  // namespace morvane
