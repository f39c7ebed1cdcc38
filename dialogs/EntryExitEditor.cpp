#include "dialogs/EntryExitEditor.h"

#include "drawing/TextCodec.h"
#include "platform/FieldExchange.h"
#include "resources/Texts.h"

namespace morvane {

EntryExitEditor::EntryExitEditor(Syntax syntax) : Dialog("") {
  constexpr int codeWidth = 60;
  constexpr int codeLines = 9;
  for (const int id : {kEntryId, kExitId}) {
    DialogControl& box =
        Add(DialogControl::Kind::MultiEdit, id,
            id == kEntryId ? "on&Entry: (Code Verbatim)" : "onE&xit: (Code Verbatim)");
    box.code = true;
    box.syntax = syntax;
    box.width = codeWidth;
    box.lines = codeLines;
  }
  AddButtons("OK", "Cancel");
}

void EntryExitEditor::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kEntryId, entry);
  exchange.Text(kExitId, exit);
}

void EntryExitEditor::OnFilled() {
  SetCaption(ToUtf8(title) + " : " + LoadText(IDS_ENTRY_EXIT_EDITOR));
}

}  // namespace morvane
