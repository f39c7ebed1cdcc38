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

void ScriptedDialogs::ExpectOpen(std::optional<std::string> path) { opens.Add(std::move(path)); }

void ScriptedDialogs::ExpectSave(std::optional<std::string> path) { saves.Add(std::move(path)); }

void ScriptedDialogs::ExpectExport(std::optional<ExportAnswer> answer) {
  exports.Add(std::move(answer));
}

void ScriptedDialogs::ExpectColor(COLORREF start, std::optional<COLORREF> chosen) {
  colors.Add(chosen, std::to_string(start));
}

void ScriptedDialogs::ExpectFont(std::optional<FontChoice> chosen) { fonts.Add(std::move(chosen)); }

std::optional<std::string> ScriptedDialogs::AskSavePath(const FileFilter&,
                                                        const std::string& suggestion) {
  lastSuggestion = suggestion;
  return saves.Take().second;
}

std::optional<Dialogs::ExportAnswer> ScriptedDialogs::AskExport(const ExportRequest& request) {
  lastExport = request;
  return exports.Take().second;
}

std::optional<COLORREF> ScriptedDialogs::AskColor(COLORREF start) {
  const auto [expectedStart, chosen] = colors.Take();
  EXPECT_EQ(std::to_string(start), expectedStart);
  return chosen;
}

std::optional<Dialogs::FontChoice> ScriptedDialogs::AskFont(const FontChoice& start) {
  lastFont = start;
  return fonts.Take().second;
}

void ScriptedDialogHost::Expect(std::string caption, Script script) {
  expected.Add(std::move(script), std::move(caption));
}

void ScriptedDialogHost::Run(CDialog& dialog) {
  const auto [caption, script] = expected.Take(dialog.Caption());
  EXPECT_EQ(dialog.Caption(), caption);
  if (script) script(dialog);
  if (!dialog.IsOpen()) return;
  ADD_FAILURE() << "the dialog was left open: " << caption;
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
