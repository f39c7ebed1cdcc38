#include "tests/scenarios/ScenarioUser.h"

#include <algorithm>
#include <fstream>
#include <iomanip>

#include "platform/FileSystem.h"
#include "platform/InstallFolder.h"
#include "tests/support/Places.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

std::string Hex(unsigned number) {
  std::ostringstream text;
  text << "0x" << std::hex << std::uppercase << number;
  return text.str();
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
  return text;
}

/// The label of a control, or of the container around it if it has none.
std::string LabelOf(const Dialog& dialog, const DialogControl& control) {
  const bool isBare = control.kind > Kind::Page && control.label.empty() && control.parent != 0;
  return isBare ? LabelOf(dialog, dialog.Control(control.parent)) : Plain(control.label);
}

/// What a control shows, in a line or, for a list, in one for each row; none for a mere container.
Lines Shown(const Dialog& dialog, const DialogControl& control) {
  const std::string label = (control.enabled ? "" : "disabled ") + LabelOf(dialog, control);
  switch (control.kind) {
    case Kind::Edit:
    case Kind::MultiEdit: return {label + " \"" + Escaped(control.text) + "\""};
    case Kind::Text:
      return control.text.empty() ? Lines() : Lines{"says \"" + Escaped(control.text) + "\""};
    case Kind::CheckBox: return {(control.checked ? "[x] " : "[ ] ") + label};
    case Kind::Button: return {"<" + label + ">"};
    case Kind::Combo:
      return {label + " " + std::to_string(control.selection) + " of " +
              std::to_string(control.itemCount)};
    case Kind::List: {
      Lines lines;
      for (int row = 0; row < static_cast<int>(control.rows.size()); ++row) {
        const bool selected = std::ranges::count(control.selectedRows, row) != 0;
        std::string line = selected ? "*" : "-";
        for (const std::string& cell : control.rows[static_cast<std::size_t>(row)]) {
          line += " | " + cell;
        }
        lines.push_back(line);
      }
      return lines;
    }
    default: return label.empty() ? Lines() : Lines{label};
  }
}

Lines Shown(const Dialog& dialog) {
  Lines lines;
  for (const DialogControl& control : dialog.Controls()) {
    std::ranges::copy(Shown(dialog, control), std::back_inserter(lines));
  }
  return lines;
}

/// The control that a step names by its label, "rows" being the list; "#2" behind a label means the
/// second one that has it. Null if there is none.
DialogControl* FindControl(Dialog& dialog, std::string name) {
  int skipped = 0;
  if (const std::size_t mark = name.find('#'); mark != std::string::npos) {
    skipped = std::stoi(name.substr(mark + 1)) - 1;
    name.resize(mark);
  }
  for (const DialogControl& control : dialog.Controls()) {
    const std::string label = control.kind == Kind::List ? "rows" : LabelOf(dialog, control);
    if (control.kind <= Kind::Page || label != name || skipped-- != 0) continue;
    return &dialog.Control(control.id);
  }
  return nullptr;
}

/// What each dialog shows when it opens first, by the end of its caption: the file "forms".
std::map<std::string, Lines> ReadForms() {
  std::map<std::string, Lines> forms;
  std::ifstream in(SourcePath("tests/scenarios/forms"));
  const std::string begin = "dialog ";
  std::string caption;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with(begin)) {
      caption = line.substr(begin.size());
    } else if (line.starts_with("  ")) {
      forms[caption].push_back(line.substr(2));
    }
  }
  return forms;
}

/// Without the name of the object that a dialog is about.
std::string KindOf(const std::string& caption) {
  const std::size_t colon = caption.find(" : ");
  return colon != std::string::npos ? caption.substr(colon + 3) : caption;
}

}  // namespace

std::string Escaped(const std::string& text) {
  std::ostringstream escaped;
  for (const unsigned char c : text) {
    if (c >= ' ' && c < 0x7F && c != '\\') {
      escaped << c;
    } else {
      escaped << "\\x" << std::hex << std::uppercase << std::setw(2) << std::setfill('0') << int{c};
    }
  }
  return escaped.str();
}

std::string Unescaped(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text.compare(i, 2, "\\x") == 0;
    bytes += isEscape ? static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16)) : text[i];
    i += isEscape ? 3 : 0;
  }
  return bytes;
}

std::string Plain(std::string_view text) {
  std::string plain(text.substr(0, text.find('\t')));
  std::erase(plain, '&');
  return plain;
}

std::optional<std::string> ScenarioUser::Next() {
  if (steps.empty()) return std::nullopt;
  const std::string step = steps.front();
  steps.pop_front();
  Note("> " + step);
  return Replaced(step, "FOLDER", folder.Root().string());
}

std::string ScenarioUser::Placed(const std::string& line) const {
  // As a test names it, and as the system has it written
  std::string placed = Replaced(line, folder.Root().string(), "FOLDER");
  const std::string native = AbsolutePath(folder.Root().string());
  for (const std::string& form : {native, Escaped(native)}) {
    placed = Replaced(placed, form + Escaped("\\"), "FOLDER/");
    placed = Replaced(placed, form + '\\', "FOLDER/");
    placed = Replaced(placed, form, "FOLDER");
  }
  for (const std::string& installed : {FindPath(GetInstallFolder()), GetInstallFolder()}) {
    // As it is, as a path of a document, and in a box of text
    std::string slashed = installed;
    std::ranges::replace(slashed, '\\', '/');
    for (const std::string& form : {installed, slashed, Escaped(installed)}) {
      placed = Replaced(placed, form, "INSTALLED/");
    }
  }
  return placed;
}

void ScenarioUser::Note(const std::string& line) { transcript += Placed(line) + "\n"; }

void ScenarioUser::Note(const Lines& lines, const std::string& prefix) {
  for (const std::string& line : lines) Note(prefix + line);
}

void ScenarioUser::Run(Dialog& dialog) {
  NestedLoop::Run();
  Lines shown = Shown(dialog);
  for (std::string& line : shown) line = Placed(line);
  static const std::map<std::string, Lines> forms = ReadForms();
  const auto form = forms.find(KindOf(dialog.Caption()));
  ASSERT_NE(form, forms.end()) << dialog.Caption();
  Lines& before = dialogs.try_emplace(dialog.Caption(), form->second).first->second;
  Note("dialog " + dialog.Caption());
  Note(LineDiff(before, shown), "  ");
  before = shown;
  while (dialog.IsOpen()) {
    if (const auto step = Next()) {
      Use(dialog, *step);
    } else {
      Note("the dialog is left open");
      dialog.Click(IDCANCEL);
    }
  }
}

void ScenarioUser::Use(Dialog& dialog, const std::string& step) {
  const std::size_t equals = step.find(" = ");
  DialogControl* control = FindControl(dialog, step.substr(0, equals));
  if (control == nullptr || !control->enabled) return Note("cannot be used");
  const std::string value = equals != std::string::npos ? step.substr(equals + 3) : "";
  switch (control->kind) {
    case Kind::Edit:
    case Kind::MultiEdit: control->text = Unescaped(value); return;
    case Kind::CheckBox: control->checked = !control->checked; break;
    case Kind::Combo: control->selection = std::stoi(value); break;
    case Kind::List: {
      std::istringstream rows(value);
      control->selectedRows.assign(std::istream_iterator<int>(rows), {});
      break;
    }
    default: break;
  }
  const Lines before = Shown(dialog);
  dialog.Click(control->id);
  if (dialog.IsOpen()) Note(LineDiff(before, Shown(dialog)), "  ");
}

MessageAnswer ScenarioUser::Show(const std::string& text, unsigned flags) {
  NestedLoop::Run();
  Note("box " + Hex(flags) + " " + Escaped(text));
  if ((flags & kButtonSetMask) == MB_OK) return MessageAnswer::Ok;
  const std::string answer = Next().value_or("");
  if (answer == "Yes") return MessageAnswer::Yes;
  if (answer == "No") return MessageAnswer::No;
  return answer == "OK" ? MessageAnswer::Ok : MessageAnswer::Cancel;
}

unsigned ScenarioUser::Track(const std::vector<Item>& items, POINT screen) {
  NestedLoop::Run();
  std::string shown;
  unsigned chosen = 0;
  std::vector<Item> entries = items;
  for (const Item& item : items)
    entries.insert(entries.end(), item.popup.begin(), item.popup.end());
  for (const Item& item : entries) {
    if (item.IsSeparator()) continue;
    const bool opens = !item.popup.empty();
    shown += std::string(" ") + (item.state.enabled || opens ? "" : "-") +
             (item.state.checked ? "+" : "") + "<" + Plain(item.text) + ">";
    if (Plain(item.text) == entry && item.state.enabled) chosen = item.id;
  }
  if (shown != std::exchange(menu, shown)) {
    Note("menu at " + std::to_string(screen.x) + "," + std::to_string(screen.y) + shown);
  }
  if (chosen == 0) Note("nothing is chosen");
  return chosen;
}

std::optional<COLORREF> ScenarioUser::AskColour(COLORREF start) {
  NestedLoop::Run();
  Note("colour from " + Hex(start));
  const std::string answer = Next().value_or("Cancel");
  if (answer == "Cancel") return std::nullopt;
  return static_cast<COLORREF>(std::stoul(answer, nullptr, 16));
}

std::optional<Dialogs::FontChoice> ScenarioUser::AskFont(const FontChoice& start) {
  NestedLoop::Run();
  Note("font from " + start.face + " " + std::to_string(start.tenths) + " " + Hex(start.colour));
  std::istringstream answer(Next().value_or("Cancel"));
  FontChoice choice;
  answer >> choice.face >> choice.tenths >> std::hex >> choice.colour;
  return choice.face != "Cancel" ? std::optional(choice) : std::nullopt;
}

std::optional<std::string> ScenarioUser::AskPath(const std::string& question) {
  NestedLoop::Run();
  Note(question);
  const std::string answer = Next().value_or("Cancel");
  return answer != "Cancel" ? std::optional(answer) : std::nullopt;
}

std::optional<std::string> ScenarioUser::AskOpenPath(const FileFilter& filter) {
  return AskPath("open " + filter.text);
}

std::optional<std::string> ScenarioUser::AskSavePath(const FileFilter& filter,
                                                     const std::string& suggestion) {
  return AskPath("save " + filter.text + " as " + suggestion);
}

std::optional<Dialogs::ExportAnswer> ScenarioUser::AskExport(const ExportRequest& request) {
  const auto path = AskPath("export " + request.kinds[request.kind].text + ", one of " +
                            std::to_string(request.kinds.size()) + " kinds, as " +
                            request.suggestion + (request.hasSelection ? " or a selection" : ""));
  if (!path) return std::nullopt;
  const std::size_t end = path->find(" selection");
  return ExportAnswer{path->substr(0, end), {.selectionOnly = end != std::string::npos}};
}

OpenResult ScenarioUser::OpenFile(const std::string& path) {
  Note("the desktop opens " + path);
  const std::string result = Next().value_or("");
  if (result == "not found") return OpenResult::NotFound;
  if (result == "no program") return OpenResult::NoProgram;
  return result == "failed" ? OpenResult::Failed : OpenResult::Opened;
}

std::unique_ptr<Process> ScenarioUser::Start(const std::string& commandLine, bool /*showWindow*/) {
  Note("starts " + commandLine);
  return nullptr;
}

void ScenarioUser::Sleep(std::chrono::milliseconds time) {
  Note("waits " + std::to_string(time.count()) + " ms");
}

}  // namespace morvane
