#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

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

/// The same for the file dialogs. An answer of nothing is Cancel.
class ScriptedDialogs : public Dialogs {
 public:
  ScriptedDialogs();
  ~ScriptedDialogs() override;

  void ExpectOpen(std::optional<std::string> path);
  void ExpectSave(std::optional<std::string> path);
  /// What the last dialog for saving proposed.
  const std::string& LastSuggestion() const { return lastSuggestion; }

  std::optional<std::string> AskOpenPath(const FileFilter& filter) override;
  std::optional<std::string> AskSavePath(const FileFilter& filter,
                                         const std::string& suggestion) override;

 private:
  using Answers = std::deque<std::optional<std::string>>;
  static std::optional<std::string> Take(Answers& answers, const char* what);

  Answers opens;
  Answers saves;
  std::string lastSuggestion;
  Dialogs* former;
};
