#include "fuzz/AnyUser.h"

#include <array>

#include "dialogs/FindReplaceDlg.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

namespace {

constexpr int kMostActions = 12;

}  // namespace

AnyUser::AnyUser(ByteSource& source)
    : source(source),
      formerHost(Service<DialogHost>::Set(this)),
      formerDialogs(Service<Dialogs>::Set(this)),
      formerBoxes(Service<MessageBoxes>::Set(this)),
      formerMenus(Service<PopupMenus>::Set(this)) {}

AnyUser::~AnyUser() {
  Service<PopupMenus>::Set(formerMenus);
  Service<MessageBoxes>::Set(formerBoxes);
  Service<Dialogs>::Set(formerDialogs);
  Service<DialogHost>::Set(formerHost);
}

/// A text as a box holds it, with the line breaks that it has.
std::string AnyUser::Typed(const char* lineBreak) {
  std::string typed;
  if (typesWords) {
    constexpr std::array words{"a", "b", "ab", "", "go();", "b a", "\n", "a\n\nb", "x > 1"};
    typed = words[static_cast<std::size_t>(source.Below(words.size()))];
  } else {
    typed = source.Text();
  }
  std::string text;
  for (const char letter : typed) {
    if (letter == '\r' || letter == '\n') {
      text += lineBreak;
    } else {
      text += letter;
    }
  }
  return text;
}

void AnyUser::Search(Dialog& dialog) {
  constexpr int mostRounds = 4;
  for (int rounds = source.Below(mostRounds); rounds > 0; --rounds) {
    dialog.Control(FindReplaceDlg::kFindTextId).text = Typed("");
    dialog.Control(FindReplaceDlg::kReplaceTextId).text = Typed("");
    dialog.Click(FindReplaceDlg::kFindId);
    Use(dialog, dialog.Control(FindReplaceDlg::kListId));
    const int id = source.Flag() ? FindReplaceDlg::kEditId : FindReplaceDlg::kReplaceId;
    Use(dialog, dialog.Control(id));
  }
  dialog.Click(IDCANCEL);
}

void AnyUser::Run(Dialog& dialog) {
  NestedLoop::Run();
  if (typesWords && dynamic_cast<FindReplaceDlg*>(&dialog) != nullptr) return Search(dialog);
  const int count = static_cast<int>(dialog.Controls().size());
  for (int actions = source.Below(kMostActions); actions > 0 && dialog.IsOpen(); --actions) {
    Use(dialog,
        dialog.Control(dialog.Controls()[static_cast<std::size_t>(source.Below(count))].id));
  }
  if (dialog.IsOpen() && (source.Flag() || (typesWords && source.Flag()))) dialog.Click(IDOK);
  if (dialog.IsOpen()) dialog.Click(IDCANCEL);
}

void AnyUser::Use(Dialog& dialog, DialogControl& control) {
  using Kind = DialogControl::Kind;
  if (!control.enabled) return;
  switch (control.kind) {
    case Kind::Edit: control.text = Typed(""); return;
    case Kind::MultiEdit: control.text = Typed("\r\n"); return;
    case Kind::CheckBox: control.checked = !control.checked; break;
    case Kind::Combo: control.selection = source.Below(control.itemCount); break;
    case Kind::List:
      control.selectedRows.clear();
      for (int row = 0; row < static_cast<int>(control.rows.size()); ++row) {
        if (source.Flag()) control.selectedRows.push_back(row);
      }
      break;
    case Kind::Button: break;
    default: return;
  }
  dialog.Click(control.id);
}

std::optional<std::string> AnyUser::AskOpenPath(const FileFilter&) {
  NestedLoop::Run();
  return source.Flag() ? path : std::nullopt;
}

std::optional<std::string> AnyUser::AskSavePath(const FileFilter&, const std::string&) {
  NestedLoop::Run();
  return source.Flag() ? path : std::nullopt;
}

std::optional<Dialogs::ExportAnswer> AnyUser::AskExport(const ExportRequest& request) {
  NestedLoop::Run();
  if (!path || source.Flag()) return std::nullopt;
  const auto kind = static_cast<std::size_t>(source.Below(static_cast<int>(request.kinds.size())));
  ExportAnswer answer;
  answer.path = *path + request.kinds[kind].extension;
  answer.options.selectionOnly = request.hasSelection && source.Flag();
  return answer;
}

std::optional<COLORREF> AnyUser::AskColour(COLORREF start) {
  NestedLoop::Run();
  if (source.Flag()) return std::nullopt;
  return start ^ source.Byte();
}

std::optional<Dialogs::FontChoice> AnyUser::AskFont(const FontChoice& start) {
  NestedLoop::Run();
  if (source.Flag()) return std::nullopt;
  return FontChoice{source.Text(), start.tenths + source.Byte() - 100, start.colour};
}

MessageAnswer AnyUser::Show(const std::string&, unsigned flags) {
  NestedLoop::Run();
  switch (flags & kButtonSetMask) {
    case MB_OK: return MessageAnswer::Ok;
    case MB_OKCANCEL: return source.Flag() ? MessageAnswer::Ok : MessageAnswer::Cancel;
    // A hand that has nothing left to do lets a dialog go, which asks whether it may.
    case MB_YESNO:
      return source.IsEmpty() || source.Flag() ? MessageAnswer::Yes : MessageAnswer::No;
    default: {
      const bool isCancelled = source.Below(8) == 0;
      if (isCancelled) return MessageAnswer::Cancel;
      return source.Flag() ? MessageAnswer::Yes : MessageAnswer::No;
    }
  }
}

unsigned AnyUser::Track(const std::vector<Item>& items, POINT screen) {
  NestedLoop::Run();
  if (items.empty() || source.Below(8) == 0) return 0;
  const Item& item = items[static_cast<std::size_t>(source.Below(static_cast<int>(items.size())))];
  if (!item.popup.empty()) return Track(item.popup, screen);
  return item.state.enabled ? item.id : 0;
}

}  // namespace morvane
