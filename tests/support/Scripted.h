#pragma once

#include <deque>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/MessageBox.h"
#include "platform/UseService.h"

/// The answers to the questions that a test expects, in their order. A question that nobody
/// expected and an answer that nobody asked for each fail the test.
template <class Answer>
class ScriptedAnswers {
 public:
  explicit ScriptedAnswers(const char* what) : what(what) {}
  ~ScriptedAnswers() {
    for (const auto& left : answers) ADD_FAILURE() << "no " << what << " came: " << left.first;
  }

  void Add(Answer answer, std::string question = "") {
    answers.emplace_back(std::move(question), std::move(answer));
  }
  /// The next question as it was expected, and its answer.
  std::pair<std::string, Answer> Take(const std::string& asked = "", Answer otherwise = {}) {
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected " << what << ": " << asked;
      return {"", std::move(otherwise)};
    }
    auto next = std::move(answers.front());
    answers.pop_front();
    return next;
  }

 private:
  const char* what;
  std::deque<std::pair<std::string, Answer>> answers;
};

/// Takes the place of the message boxes for the length of a test. A box with another text than was
/// expected fails the test.
class ScriptedMessageBoxes : public MessageBoxes {
 public:
  /// The next box has to contain `textPart`, and gets the answer.
  void Expect(std::string textPart, MessageAnswer answer = MessageAnswer::Ok);
  /// The flags of the last box.
  unsigned LastFlags() const { return lastFlags; }
  const std::vector<std::string>& Shown() const { return shown; }

  MessageAnswer Show(const std::string& text, unsigned flags) override;

 private:
  ScriptedAnswers<MessageAnswer> expected{"message box"};
  std::vector<std::string> shown;
  unsigned lastFlags = 0;
  const UseService<MessageBoxes> use{*this};
};

/// The same for the desktop's dialogs. An answer of nothing is Cancel.
class ScriptedDialogs : public Dialogs {
 public:
  void ExpectSave(std::optional<std::string> path);
  void ExpectExport(std::optional<ExportAnswer> answer);
  /// What the last dialog for an export was asked for.
  const ExportRequest& LastExport() const { return lastExport; }
  /// What the last dialog for saving proposed.
  const std::string& LastSuggestion() const { return lastSuggestion; }

  std::optional<std::string> AskOpenPath(const FileFilter&) override { return {}; }
  std::optional<std::string> AskSavePath(const FileFilter&, const std::string& suggestion) override;
  std::optional<ExportAnswer> AskExport(const ExportRequest& request) override;
  std::optional<COLORREF> AskColor(COLORREF) override { return {}; }
  std::optional<FontChoice> AskFont(const FontChoice&) override { return {}; }

 private:
  ScriptedAnswers<std::optional<std::string>> saves{"dialog for saving"};
  ScriptedAnswers<std::optional<ExportAnswer>> exports{"dialog for an export"};
  ExportRequest lastExport;
  std::string lastSuggestion;
  const UseService<Dialogs> use{*this};
};
