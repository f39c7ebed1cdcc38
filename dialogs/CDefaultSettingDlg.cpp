#include "dialogs/CDefaultSettingDlg.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "model/CodeLanguage.h"
#include "model/Defaults.h"
#include "platform/Dialogs.h"
#include "platform/FieldExchange.h"

namespace morvane {

CDefaultSettingDlg::CDefaultSettingDlg()
    : Dialog("Default Settings"), defaults(Defaults::Instance()) {
  Add(DialogControl::Kind::Row, kGroupsId, "");
  AddState();
  AddMesg();
  AddLine();
  AddGrid();
  AddButtons("Save", "Cancel");
}

CDefaultSettingDlg& CDefaultSettingDlg::Instance() {
  static CDefaultSettingDlg instance;
  return instance;
}

void CDefaultSettingDlg::AddColourRow(int group, int row, const SpokenControl& tick,
                                      const SpokenControl& colour) {
  using Kind = DialogControl::Kind;
  Add(Kind::Row, row, "", group);
  Add(Kind::CheckBox, tick.id, tick.label, row).spoken = tick.spoken;
  Add(Kind::Button, colour.id, colour.label, row).spoken = colour.spoken;
}

void CDefaultSettingDlg::AddState() {
  using Kind = DialogControl::Kind;
  constexpr int width = 26;
  constexpr int lines = 4;
  Add(Kind::Group, kStateId, "State", kGroupsId);
  Add(Kind::Edit, kStateNameId, "&Name :", kStateId).width = width;
  Add(Kind::CheckBox, kStateAnchorId, "&Anchors Visible", kStateId).spoken =
      "Anchors of states visible";
  for (const int id : {kEntryId, kExitId}) {
    DialogControl& box =
        Add(Kind::MultiEdit, id, id == kEntryId ? "on&Entry:" : "onE&xit:", kStateId);
    box.code = true;
    box.width = width;
    box.lines = lines;
  }
  Add(Kind::Group, kStateBgId, "Background", kStateId);
  AddColourRow(kStateBgId, kStateBgRowId,
               {kStateTransparentId, "&Transparent", "States transparent"},
               {kStateBgColourId, "&Color...", "Background color of states"});
}

void CDefaultSettingDlg::AddMesg() {
  using Kind = DialogControl::Kind;
  Add(Kind::Column, kMesgColumnId, "", kGroupsId);
  Add(Kind::Group, kMesgId, "Message", kMesgColumnId);
  Add(Kind::CheckBox, kMesgAnchorId, "Anchors &Visible", kMesgId).spoken =
      "Anchors of messages visible";
  Add(Kind::Group, kBorderId, "Border", kMesgId);
  AddColourRow(kBorderId, kBorderRowId, {kNoBorderId, "No &Border", ""},
               {kBorderColourId, "C&olor...", "Border color of messages"});
  Add(Kind::Group, kMesgBgId, "Background", kMesgId);
  AddColourRow(kMesgBgId, kMesgBgRowId,
               {kMesgTransparentId, "Trans&parent", "Messages transparent"},
               {kMesgBgColourId, "Co&lor...", "Background color of messages"});
}

void CDefaultSettingDlg::AddLine() {
  using Kind = DialogControl::Kind;
  Add(Kind::Group, kLineId, "Line", kMesgColumnId);
  DialogControl& colour = Add(Kind::Combo, kLineColourId, "Colo&r:", kLineId);
  colour.spoken = "Line color";
  CColorComboEx::Attach(colour);
  DialogControl& style = Add(Kind::Combo, kLineStyleId, "&Style:", kLineId);
  style.spoken = "Line style";
  PenPicker::Attach(style);
}

void CDefaultSettingDlg::AddGrid() {
  using Kind = DialogControl::Kind;
  Add(Kind::Column, kGridColumnId, "", kGroupsId);
  Add(Kind::Group, kGridId, "Grid && Text", kGridColumnId);
  Add(Kind::CheckBox, kShowGridId, "Show &Grid", kGridId);
  Add(Kind::Button, kTextStyleId, "Text St&yle...", kGridId);
}

void CDefaultSettingDlg::ShowDialog() {
  if (IsOpen()) return;
  defaults.Load();
  for (const int id : {kEntryId, kExitId}) Control(id).syntax = CodeLanguage::Of(nullptr);
  if (!DoModal()) defaults.Load();
}

void CDefaultSettingDlg::ExchangeFields(FieldExchange& exchange) {
  exchange.Text(kStateNameId, defaults.StateName);
  exchange.Check(kStateAnchorId, defaults.StateAnchor);
  exchange.Text(kEntryId, defaults.Entry);
  exchange.Text(kExitId, defaults.Exit);
  exchange.Check(kStateTransparentId, defaults.StateBgTransparent);
  exchange.Check(kMesgAnchorId, defaults.MesgAnchor);
  exchange.Check(kNoBorderId, defaults.MesgBorder);
  exchange.Check(kMesgTransparentId, defaults.MesgBgTransparent);
  exchange.Check(kShowGridId, defaults.ShowGrid);
  exchange.Index(kLineColourId, defaults.LineColor);
  exchange.Index(kLineStyleId, defaults.LineStyle);
}

void CDefaultSettingDlg::OnFilled() { EnableButtons(); }

void CDefaultSettingDlg::EnableButtons() {
  Enable(kStateBgColourId, defaults.StateBgTransparent == 0);
  Enable(kMesgBgColourId, defaults.MesgBgTransparent == 0);
  Enable(kBorderColourId, defaults.MesgBorder == 0);
}

void CDefaultSettingDlg::OnClicked(int id) {
  switch (id) {
    case kStateTransparentId:
    case kMesgTransparentId:
    case kNoBorderId:
      TakeFields();
      EnableButtons();
      break;
    case kStateBgColourId: ChooseColour(defaults.StateBgColor); break;
    case kMesgBgColourId: ChooseColour(defaults.MesgBgColor); break;
    case kBorderColourId: ChooseColour(defaults.MesgBorderColor); break;
    case kTextStyleId: ChooseFont(); break;
    default: break;
  }
}

/// The dialog starts with whole points.
void CDefaultSettingDlg::ChooseFont() {
  constexpr std::int32_t tenthsPerPoint = 10;
  const auto chosen = Service<Dialogs>::Get().AskFont(
      {defaults.FontName, defaults.FontSize / tenthsPerPoint * tenthsPerPoint, defaults.FontColor});
  if (!chosen) return;
  defaults.FontName = chosen->face;
  defaults.FontSize = chosen->tenths;
  defaults.FontColor = chosen->colour;
}

bool CDefaultSettingDlg::OnOk() {
  TakeFields();
  defaults.Save();
  return true;
}

}  // namespace morvane
