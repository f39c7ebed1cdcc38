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
  EXPECT_TRUE(exports.empty()) << "a dialog for an export was not asked for";
  EXPECT_TRUE(colors.empty()) << "a dialog for a colour was not asked for";
  EXPECT_TRUE(fonts.empty()) << "a dialog for a font was not asked for";
}

void ScriptedDialogs::ExpectOpen(std::optional<std::string> path) {
  opens.push_back(std::move(path));
}

void ScriptedDialogs::ExpectSave(std::optional<std::string> path) {
  saves.push_back(std::move(path));
}

template <class Answer>
std::optional<Answer> ScriptedDialogs::Take(Answers<Answer>& answers, const char* what) {
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected dialog for " << what;
    return std::nullopt;
  }
  std::optional<Answer> answer = answers.front();
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

void ScriptedDialogs::ExpectExport(std::optional<ExportAnswer> answer) {
  exports.push_back(std::move(answer));
}

std::optional<Dialogs::ExportAnswer> ScriptedDialogs::AskExport(const ExportRequest& request) {
  lastExport = request;
  return Take(exports, "an export");
}

void ScriptedDialogs::ExpectColor(COLORREF start, std::optional<COLORREF> chosen) {
  colors.push_back({start, chosen});
}

void ScriptedDialogs::ExpectFont(std::optional<FontChoice> chosen) {
  fonts.push_back(std::move(chosen));
}

std::optional<COLORREF> ScriptedDialogs::AskColor(COLORREF start) {
  if (colors.empty()) {
    ADD_FAILURE() << "unexpected dialog for a colour";
    return std::nullopt;
  }
  const ExpectedColor next = colors.front();
  colors.pop_front();
  EXPECT_EQ(start, next.start);
  return next.chosen;
}

std::optional<Dialogs::FontChoice> ScriptedDialogs::AskFont(const FontChoice& start) {
  lastFont = start;
  if (fonts.empty()) {
    ADD_FAILURE() << "unexpected dialog for a font";
    return std::nullopt;
  }
  std::optional<FontChoice> next = fonts.front();
  fonts.pop_front();
  return next;
}

ScriptedDialogHost::ScriptedDialogHost() : former(Service<DialogHost>::Set(this)) {}

ScriptedDialogHost::~ScriptedDialogHost() {
  Service<DialogHost>::Set(former);
  for (const Expected& left : expected) ADD_FAILURE() << "no dialog opened: " << left.caption;
}

void ScriptedDialogHost::Expect(std::string caption, Script script) {
  expected.push_back({std::move(caption), std::move(script)});
}

void ScriptedDialogHost::Run(CDialog& dialog) {
  if (expected.empty()) {
    ADD_FAILURE() << "unexpected dialog: " << dialog.Caption();
    dialog.Click(IDCANCEL);
    return;
  }
  const Expected next = std::move(expected.front());
  expected.pop_front();
  EXPECT_EQ(dialog.Caption(), next.caption);
  next.script(dialog);
  if (!dialog.IsOpen()) return;
  ADD_FAILURE() << "the dialog was left open: " << next.caption;
  dialog.Click(IDCANCEL);
}

void ScriptedDialogHost::Type(CDialog& dialog, int id, const std::string& text) {
  EXPECT_TRUE(dialog.Control(id).enabled) << id;
  dialog.Control(id).text = text;
}

void ScriptedDialogHost::Press(CDialog& dialog, int id) {
  EXPECT_TRUE(dialog.Control(id).enabled) << id;
  dialog.Click(id);
}

void ScriptedDialogHost::Toggle(CDialog& dialog, int id) {
  bool& checked = dialog.Control(id).checked;
  checked = !checked;
  Press(dialog, id);
}

void ScriptedDialogHost::Choose(CDialog& dialog, int id, int item) {
  EXPECT_LT(item, dialog.Control(id).itemCount);
  dialog.Control(id).selection = item;
  Press(dialog, id);
}

void ScriptedDialogHost::SelectRows(CDialog& dialog, int id, std::vector<int> rows) {
  for (const int row : rows) {
    EXPECT_LT(static_cast<std::size_t>(row), dialog.Control(id).rows.size());
  }
  dialog.Control(id).selectedRows = std::move(rows);
  Press(dialog, id);
}
