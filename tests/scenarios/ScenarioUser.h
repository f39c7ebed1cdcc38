#pragma once

#include <deque>
#include <map>

#include "platform/CDialog.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/PopupMenus.h"
#include "tests/scenarios/LineDiff.h"
#include "tests/support/ChartTest.h"

/// A user who goes through steps one by one, in whatever opens, and writes down all that shows.
class ScenarioUser : public DialogHost, public Dialogs, public MessageBoxes, public PopupMenus {
 public:
  explicit ScenarioUser(std::deque<std::string> steps) : steps(std::move(steps)) {}

  /// The next step, which is written down too; nothing behind the last one.
  std::optional<std::string> Next();
  void Note(const std::string& line) { transcript += line + "\n"; }
  void Note(const Lines& lines, const std::string& prefix = "");
  const std::string& Transcript() const { return transcript; }
  /// Chooses that entry in the next menu.
  void WillChoose(const std::string& text) { entry = text; }

  void Run(CDialog& dialog) override;
  MessageAnswer Show(const std::string& text, unsigned flags) override;
  unsigned Track(const std::vector<Item>& items, POINT screen) override;
  std::optional<COLORREF> AskColor(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;
  std::optional<std::string> AskOpenPath(const FileFilter&) override { return {}; }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string&) override {
    return {};
  }
  std::optional<ExportAnswer> AskExport(const ExportRequest&) override { return {}; }

 private:
  void Use(CDialog& dialog, const std::string& step);

  std::deque<std::string> steps;
  std::string transcript;
  std::string entry;
  std::string menu;                      ///< what the last one showed
  std::map<std::string, Lines> dialogs;  ///< what they showed when they opened last, by caption
  const UseService<DialogHost> useHost{*this};
  const UseService<Dialogs> useDialogs{*this};
  const UseService<MessageBoxes> useBoxes{*this};
  const UseService<PopupMenus> useMenus{*this};
};

/// A text in one line: control characters, bytes beyond ASCII and "\" are written "\x0A".
std::string Escaped(const std::string& text);
std::string Unescaped(const std::string& text);
/// A text of a menu or a dialog without the mark of its mnemonic and its key.
std::string Plain(std::string_view text);
