#pragma once

/// The commands that show the documents beside the program and the maker's page on the web.
class HelpCommands {
 public:
  /// Carries a command out, with its messages; false for any other command.
  static bool Run(unsigned id);

 private:
  static void OpenDocument(const char* name);
  static void OpenWebPage();
};
