#include "dialogs/ConnectDlg.h"

#include "resources/Texts.h"

namespace morvane {

ConnectDlg::ConnectDlg(const std::string& source, const std::vector<std::string>& names)
    : Dialog("Connect to"), source(source) {
  DialogControl& list = Add(DialogControl::Kind::List, kTargetsId, "");
  list.columns = {{LoadText(IDS_FIND_OBJECT), 0}};
  for (const std::string& name : names) list.rows.push_back({name});
  AddButtons("Connect", "Cancel");
}

void ConnectDlg::OnFilled() {
  SetCaption(source + " : " + Translate("Connect to"));
  Control(kTargetsId).selectedRows = chosen;
  OnClicked(kTargetsId);
}

void ConnectDlg::OnClicked(int id) {
  if (id == kTargetsId) Enable(IDOK, !Control(kTargetsId).selectedRows.empty());
}

bool ConnectDlg::OnOk() {
  chosen = Control(kTargetsId).selectedRows;
  return !chosen.empty();
}

}  // namespace morvane
