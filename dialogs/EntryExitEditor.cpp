#include "dialogs/EntryExitEditor.h"

#include "platform/DataExchange.h"
#include "resources/Texts.h"

EntryExitEditor::EntryExitEditor() : CDialog("") {
  constexpr int codeWidth = 60;
  constexpr int codeLines = 9;
  for (const int id : {IDC_ENTRY, IDC_EXIT}) {
    DialogControl& box =
        Add(DialogControl::Kind::MultiEdit, id,
            id == IDC_ENTRY ? "onEntry: (Code Verbatim)" : "onExit: (Code Verbatim)");
    box.code = true;
    box.width = codeWidth;
    box.lines = codeLines;
  }
  AddButtons("OK", "Cancel");
}

void EntryExitEditor::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_ENTRY, entry);
  exchange.Text(IDC_EXIT, exit);
}

void EntryExitEditor::OnInitDialog() {
  SetCaption(title + " : " + LoadText(IDS_ENTRY_EXIT_EDITOR));
}
