#pragma once

#include <deque>
#include <map>

#include "codegen/CGenerateCppDlg.h"
#include "platform/Dialog.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenus.h"
#include "platform/Process.h"
#include "platform/ShellOpen.h"
#include "tests/scenarios/LineDiff.h"
#include "tests/support/ChartTest.h"

namespace morvane {

/// A user who goes through steps one by one, in whatever opens, and writes down all that shows.
/// Paths that begin with FOLDER are in a folder of this user's own, INSTALLED/ is where the program
/// is.
class ScenarioUser : public DialogHost,
                     public Dialogs,
                     public GeneratorHost,
                     public MessageBoxes,
                     public PopupMenus,
                     public Processes,
                     public ShellOpen {
 public:
  explicit ScenarioUser(std::deque<std::string> steps) : steps(std::move(steps)) {}

  /// The next step, which is written down too; nothing behind the last one.
  std::optional<std::string> Next();
  void Note(const std::string& line);
  void Note(const Lines& lines, const std::string& prefix = "");
  const std::string& Transcript() const { return transcript; }
  const TempFolder& Folder() const { return folder; }
  /// Chooses that entry in the next menu.
  void WillChoose(const std::string& text) { entry = text; }

  void Run(Dialog& dialog) override;
  void Run(CGenerateCppDlg& dialog) override { Run(static_cast<Dialog&>(dialog)); }
  MessageAnswer Show(const std::string& text, unsigned flags) override;
  unsigned Track(const std::vector<Item>& items, POINT screen) override;
  std::optional<COLORREF> AskColour(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;
  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;
  std::optional<ExportAnswer> AskExport(const ExportRequest& request) override;
  OpenResult OpenFile(const std::string& path) override;
  OpenResult OpenWeb(const std::string& address) override { return OpenFile(address); }
  /// No program can be started.
  std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) override;
  void Sleep(std::chrono::milliseconds time) override;

 private:
  /// A line without the places of this machine.
  std::string Placed(const std::string& line) const;
  std::optional<std::string> AskPath(const std::string& question);
  void Use(Dialog& dialog, const std::string& step);

  const TempFolder folder;
  std::deque<std::string> steps;
  std::string transcript;
  std::string entry;
  std::string menu;                      ///< what the last one showed
  std::map<std::string, Lines> dialogs;  ///< what they showed when they opened last, by caption
  const UseService<DialogHost> useHost{*this};
  const UseService<Dialogs> useDialogs{*this};
  const UseService<GeneratorHost> useGenerators{*this};
  const UseService<MessageBoxes> useBoxes{*this};
  const UseService<PopupMenus> useMenus{*this};
  const UseService<Processes> useProcesses{*this};
  const UseService<ShellOpen> useDesktop{*this};
};

/// A text in one line: control characters, bytes beyond ASCII and "\" are written "\x0A".
std::string Escaped(const std::string& text);
std::string Unescaped(const std::string& text);
/// A text of a menu or a dialog without the mark of its mnemonic and its key.
std::string Plain(std::string_view text);

}  // namespace morvane
