#include "dialogs/CDefaultSettingDlg.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "model/Defaults.h"
#include "platform/DataExchange.h"
#include "platform/Dialogs.h"

CDefaultSettingDlg::CDefaultSettingDlg()
    : CDialog("Default Settings"), defaults(Defaults::Instance()) {
  Add(DialogControl::Kind::Row, IDC_GROUPS, "");
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

void CDefaultSettingDlg::AddColorRow(int group, int row, int box, const char* label, int button) {
  using Kind = DialogControl::Kind;
  Add(Kind::Row, row, "", group);
  Add(Kind::CheckBox, box, label, row);
  Add(Kind::Button, button, "Color...", row);
}

void CDefaultSettingDlg::AddState() {
  using Kind = DialogControl::Kind;
  constexpr int width = 26;
  constexpr int lines = 4;
  Add(Kind::Group, IDC_STATE, "State", IDC_GROUPS);
  Add(Kind::Edit, IDC_STATE_NAME, "Name :", IDC_STATE).width = width;
  Add(Kind::CheckBox, IDC_STATE_ANCHOR, "Anchors Visible", IDC_STATE);
  for (const int id : {IDC_ENTRY, IDC_EXIT}) {
    DialogControl& box =
        Add(Kind::MultiEdit, id, id == IDC_ENTRY ? "onEntry:" : "onExit:", IDC_STATE);
    box.code = true;
    box.width = width;
    box.lines = lines;
  }
  Add(Kind::Group, IDC_STATE_BG, "Background", IDC_STATE);
  AddColorRow(IDC_STATE_BG, IDC_STATE_BG_ROW, IDC_STATE_TRANSPARENT, "Transparent",
              IDC_STATE_BG_COLOR);
}

void CDefaultSettingDlg::AddMesg() {
  using Kind = DialogControl::Kind;
  Add(Kind::Column, IDC_MESG_COLUMN, "", IDC_GROUPS);
  Add(Kind::Group, IDC_MESG, "Message", IDC_MESG_COLUMN);
  Add(Kind::CheckBox, IDC_MESG_ANCHOR, "Anchors Visible", IDC_MESG);
  Add(Kind::Group, IDC_BORDER, "Border", IDC_MESG);
  AddColorRow(IDC_BORDER, IDC_BORDER_ROW, IDC_NO_BORDER, "No Border", IDC_BORDER_COLOR);
  Add(Kind::Group, IDC_MESG_BG, "Background", IDC_MESG);
  AddColorRow(IDC_MESG_BG, IDC_MESG_BG_ROW, IDC_MESG_TRANSPARENT, "Transparent", IDC_MESG_BG_COLOR);
}

void CDefaultSettingDlg::AddLine() {
  using Kind = DialogControl::Kind;
  Add(Kind::Group, IDC_LINE, "Line", IDC_MESG_COLUMN);
  CColorComboEx::Attach(Add(Kind::Combo, IDC_LINE_COLOR, "Color:", IDC_LINE));
  PenPicker::Attach(Add(Kind::Combo, IDC_LINE_STYLE, "Style:", IDC_LINE));
}

void CDefaultSettingDlg::AddGrid() {
  using Kind = DialogControl::Kind;
  Add(Kind::Column, IDC_GRID_COLUMN, "", IDC_GROUPS);
  Add(Kind::Group, IDC_GRID, "Grid && Text", IDC_GRID_COLUMN);
  Add(Kind::CheckBox, IDC_SHOW_GRID, "Show Grid", IDC_GRID);
  Add(Kind::Button, IDC_TEXT_STYLE, "Text Style...", IDC_GRID);
}

void CDefaultSettingDlg::ShowDialog() {
  if (IsOpen()) return;
  defaults.Load();
  if (!DoModal()) defaults.Load();
}

void CDefaultSettingDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_STATE_NAME, defaults.StateName);
  exchange.Check(IDC_STATE_ANCHOR, defaults.StateAnchor);
  exchange.Text(IDC_ENTRY, defaults.Entry);
  exchange.Text(IDC_EXIT, defaults.Exit);
  exchange.Check(IDC_STATE_TRANSPARENT, defaults.StateBgTransparent);
  exchange.Check(IDC_MESG_ANCHOR, defaults.MesgAnchor);
  exchange.Check(IDC_NO_BORDER, defaults.MesgBorder);
  exchange.Check(IDC_MESG_TRANSPARENT, defaults.MesgBgTransparent);
  exchange.Check(IDC_SHOW_GRID, defaults.ShowGrid);
  exchange.Index(IDC_LINE_COLOR, defaults.LineColor);
  exchange.Index(IDC_LINE_STYLE, defaults.LineStyle);
}

void CDefaultSettingDlg::OnInitDialog() { EnableButtons(); }

void CDefaultSettingDlg::EnableButtons() {
  Enable(IDC_STATE_BG_COLOR, defaults.StateBgTransparent == 0);
  Enable(IDC_MESG_BG_COLOR, defaults.MesgBgTransparent == 0);
  Enable(IDC_BORDER_COLOR, defaults.MesgBorder == 0);
}

void CDefaultSettingDlg::OnClicked(int id) {
  switch (id) {
    case IDC_STATE_TRANSPARENT:
    case IDC_MESG_TRANSPARENT:
    case IDC_NO_BORDER:
      UpdateData(true);
      EnableButtons();
      break;
    case IDC_STATE_BG_COLOR: ChooseColor(defaults.StateBgColor); break;
    case IDC_MESG_BG_COLOR: ChooseColor(defaults.MesgBgColor); break;
    case IDC_BORDER_COLOR: ChooseColor(defaults.MesgBorderColor); break;
    case IDC_TEXT_STYLE: ChooseFont(); break;
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
  defaults.FontColor = chosen->color;
}

bool CDefaultSettingDlg::OnOk() {
  UpdateData(true);
  defaults.Save();
  return true;
}
