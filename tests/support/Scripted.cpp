#include "tests/support/Scripted.h"

#include <gtest/gtest.h>

ScriptedMessageBoxes::ScriptedMessageBoxes() : former(Service<MessageBoxes>::Set(this)) {}

ScriptedMessageBoxes::~ScriptedMessageBoxes() {
  Service<MessageBoxes>::Set(former);
  for (const Expected& left : expected) {
    ADD_FAILURE() << "no message box asked: " << left.textPart;
  }
}

void ScriptedMessageBoxes::Expect(std::string textPart, MessageAnswer answer) {
  expected.push_back({std::move(textPart), answer});
}

MessageAnswer ScriptedMessageBoxes::Show(const std::string& text, unsigned flags) {
  shown.push_back(text);
  lastFlags = flags;
  if (expected.empty()) {
    ADD_FAILURE() << "unexpected message box: " << text;
    return (flags & kButtonSetMask) == MB_OK ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
  const Expected next = expected.front();
  expected.pop_front();
  EXPECT_NE(text.find(next.textPart), std::string::npos)
      << "the box says: " << text << "\nexpected: " << next.textPart;
  return next.answer;
}

ScriptedDialogs::ScriptedDialogs() : former(Service<Dialogs>::Set(this)) {}

ScriptedDialogs::~ScriptedDialogs() {
  Service<Dialogs>::Set(former);
  EXPECT_TRUE(opens.empty()) << "a dialog for opening was not asked for";
  EXPECT_TRUE(saves.empty()) << "a dialog for saving was not asked for";
}

void ScriptedDialogs::ExpectOpen(std::optional<std::string> path) {
  opens.push_back(std::move(path));
}

void ScriptedDialogs::ExpectSave(std::optional<std::string> path) {
  saves.push_back(std::move(path));
}

std::optional<std::string> ScriptedDialogs::Take(Answers& answers, const char* what) {
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected dialog for " << what;
    return std::nullopt;
  }
  std::optional<std::string> answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<std::string> ScriptedDialogs::AskOpenPath(const FileFilter&) {
  return Take(opens, "opening");
}

std::optional<std::string> ScriptedDialogs::AskSavePath(const FileFilter&,
                                                        const std::string& suggestion) {
  lastSuggestion = suggestion;
  return Take(saves, "saving");
}
