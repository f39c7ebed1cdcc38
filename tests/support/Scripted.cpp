#include "tests/support/Scripted.h"

void ScriptedMessageBoxes::Expect(std::string textPart, MessageAnswer answer) {
  expected.Add(answer, std::move(textPart));
}

MessageAnswer ScriptedMessageBoxes::Show(const std::string& text, unsigned flags) {
  shown.push_back(text);
  lastFlags = flags;
  const bool isNotice = (flags & kButtonSetMask) == MB_OK;
  const auto [textPart, answer] =
      expected.Take(text, isNotice ? MessageAnswer::Ok : MessageAnswer::Cancel);
  EXPECT_NE(text.find(textPart), std::string::npos)
      << "the box says: " << text << "\nexpected: " << textPart;
  return answer;
}

void ScriptedDialogs::ExpectSave(std::optional<std::string> path) { saves.Add(std::move(path)); }

void ScriptedDialogs::ExpectExport(std::optional<ExportAnswer> answer) {
  exports.Add(std::move(answer));
}

std::optional<std::string> ScriptedDialogs::AskSavePath(const FileFilter&,
                                                        const std::string& suggestion) {
  lastSuggestion = suggestion;
  return saves.Take().second;
}

std::optional<Dialogs::ExportAnswer> ScriptedDialogs::AskExport(const ExportRequest& request) {
  lastExport = request;
  return exports.Take().second;
}
