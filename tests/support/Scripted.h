#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/CDialog.h"
#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/Service.h"

/// Takes the place of the message boxes for the length of a test. A box that nobody expected, a box
/// with another text, and an answer that nobody asked for each fail the test.
class ScriptedMessageBoxes : public MessageBoxes {
 public:
  ScriptedMessageBoxes();
  ~ScriptedMessageBoxes() override;

  /// The next box has to contain `textPart`, and gets the answer.
  void Expect(std::string textPart, MessageAnswer answer = MessageAnswer::Ok);
  /// The flags of the last box.
  unsigned LastFlags() const { return lastFlags; }
  const std::vector<std::string>& Shown() const { return shown; }

  MessageAnswer Show(const std::string& text, unsigned flags) override;

 private:
  struct Expected {
    std::string textPart;
    MessageAnswer answer;
  };
  std::deque<Expected> expected;
  std::vector<std::string> shown;
  unsigned lastFlags = 0;
  MessageBoxes* former;
};

/// The same for the desktop's dialogs. An answer of nothing is Cancel.
class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();
  ~ScriptedDialogs() override;

  void ExpectOpen(std::optional<std::string> path);
  void ExpectSave(std::optional<std::string> path);
  void ExpectExport(std::optional<ExportAnswer> answer);
  /// The next colour dialog has to start from one colour, and gives the other.
  void ExpectColor(COLORREF start, std::optional<COLORREF> chosen);
  void ExpectFont(std::optional<FontChoice> chosen);
  /// What the last dialog for a font started from.
  const FontChoice& LastFont() const { return lastFont; }
  /// What the last dialog for an export was asked for.
  const ExportRequest& LastExport() const { return lastExport; }
  /// What the last dialog for saving proposed.
  const std::string& LastSuggestion() const { return lastSuggestion; }

  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;
  std::optional<ExportAnswer> AskExport(const ExportRequest& request) override;
  std::optional<COLORREF> AskColor(COLORREF start) override;
  std::optional<FontChoice> AskFont(const FontChoice& start) override;

 private:
  struct ExpectedColor {
    COLORREF start;
    std::optional<COLORREF> chosen;
  };
  template <class Answer>
  using Answers = std::deque<std::optional<Answer>>;
  template <class Answer>
  static std::optional<Answer> Take(Answers<Answer>& answers, const char* what);

  Answers<std::string> opens;
  Answers<std::string> saves;
  Answers<ExportAnswer> exports;
  ExportRequest lastExport;
  std::deque<ExpectedColor> colors;
  std::deque<std::optional<FontChoice>> fonts;
  FontChoice lastFont;
  std::string lastSuggestion;
  Dialogs* former;
};

/// The same for the program's own dialogs: each one that opens runs the next script, which sets
/// controls and clicks until the dialog has closed.
class ScriptedDialogHost : public DialogHost {
 public:
  using Script = std::function<void(CDialog&)>;

  ScriptedDialogHost();
  ~ScriptedDialogHost() override;

  /// The next dialog has to have that caption.
  void Expect(std::string caption, Script script);
  void Run(CDialog& dialog) override;

  // What a user does in a dialog; a control that is disabled fails the test.
  static void Type(CDialog& dialog, int id, const std::string& text);
  static void Press(CDialog& dialog, int id);
  /// Clicks a check box, which changes it.
  static void Toggle(CDialog& dialog, int id);
  static void Choose(CDialog& dialog, int id, int item);
  static void SelectRows(CDialog& dialog, int id, std::vector<int> rows);

 private:
  struct Expected {
    std::string caption;
    Script script;
  };
  std::deque<Expected> expected;
  DialogHost* former;
};
