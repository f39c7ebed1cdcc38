#include "dialogs/CDefaultSettingDlg.h"

#include "dialogs/CColorComboEx.h"
#include "dialogs/PenPicker.h"
#include "platform/DataExchange.h"
#include "platform/Dialogs.h"
#include "platform/Profile.h"
#include "resources/Texts.h"

namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kDefaultFace = "Verdana";

std::string ReadText(const char* key, const std::string& fallback) {
  return Service<Profile>::Get().GetString(kSection, key, fallback);
}

std::int32_t ReadInt(const char* key, std::int32_t fallback) {
  return Service<Profile>::Get().GetInt(kSection, key, fallback);
}

COLORREF ReadColour(const char* key, COLORREF fallback) {
  constexpr COLORREF colourBits = 0xFFFFFF;
  return static_cast<COLORREF>(ReadInt(key, static_cast<std::int32_t>(fallback))) & colourBits;
}

/// A text of several lines as the model keeps it: every line break is CR LF.
std::string ReadLines(const char* key) {
  std::string lines;
  for (const char c : ReadText(key, "")) {
    if (c == '\r') continue;
    if (c == '\n') lines += '\r';
    lines += c;
  }
  return lines;
}

/// A text of one line: what follows a line break in a damaged profile is dropped.
std::string ReadOneLine(const char* key, const std::string& fallback) {
  const std::string text = ReadText(key, fallback);
  return text.substr(0, text.find_first_of("\r\n"));
}

}  // namespace

CDefaultSettingDlg::CDefaultSettingDlg() : CDialog("Default Settings") {
  Add(DialogControl::Kind::Row, IDC_GROUPS, "");
  AddState();
  AddMesg();
  AddLine();
  AddGrid();
  AddButtons("Save", "Cancel");
  LoadSettings();
}

CDefaultSettingDlg& CDefaultSettingDlg::Instance() {
  static CDefaultSettingDlg instance;
  return instance;
}

void CDefaultSettingDlg::LoadSettings() {
  StateName = ReadOneLine("StateName", LoadText(IDS_STATE_NAME));
  StateAnchor = ReadInt("StateAnchor", 1);
  Entry = ReadLines("Entry");
  Exit = ReadLines("Exit");
  StateBgTransparent = ReadInt("StateBgTransparent", 0);
  MesgAnchor = ReadInt("MesgAnchor", 1);
  MesgBorder = ReadInt("MesgBorder", 1);
  MesgBgTransparent = ReadInt("MesgBgTransparent", 1);
  ShowGrid = ReadInt("ShowGrid", 1);
  StateBgColor = ReadColour("StateBgColor", 0xBFFFFF);
  MesgBorderColor = ReadColour("MesgBorderColor", 0x00FF00);
  MesgBgColor = ReadColour("MesgBgColor", 0xFFFFFF);
  LineColor = ReadInt("LineColor", 0);
  LineStyle = ReadInt("LineStyle", 0);
  FontName = ReadOneLine("FontName", kDefaultFace);
  FontSize = ReadInt("FontSize", 80);
  FontColor = ReadColour("FontColor", 0x000080);
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
  LoadSettings();
  if (!DoModal()) LoadSettings();
}

void CDefaultSettingDlg::DoDataExchange(DataExchange& exchange) {
  exchange.Text(IDC_STATE_NAME, StateName);
  exchange.Check(IDC_STATE_ANCHOR, StateAnchor);
  exchange.Text(IDC_ENTRY, Entry);
  exchange.Text(IDC_EXIT, Exit);
  exchange.Check(IDC_STATE_TRANSPARENT, StateBgTransparent);
  exchange.Check(IDC_MESG_ANCHOR, MesgAnchor);
  exchange.Check(IDC_NO_BORDER, MesgBorder);
  exchange.Check(IDC_MESG_TRANSPARENT, MesgBgTransparent);
  exchange.Check(IDC_SHOW_GRID, ShowGrid);
  exchange.Index(IDC_LINE_COLOR, LineColor);
  exchange.Index(IDC_LINE_STYLE, LineStyle);
}

void CDefaultSettingDlg::OnInitDialog() { EnableButtons(); }

void CDefaultSettingDlg::EnableButtons() {
  Enable(IDC_STATE_BG_COLOR, StateBgTransparent == 0);
  Enable(IDC_MESG_BG_COLOR, MesgBgTransparent == 0);
  Enable(IDC_BORDER_COLOR, MesgBorder == 0);
}

void CDefaultSettingDlg::OnClicked(int id) {
  switch (id) {
    case IDC_STATE_TRANSPARENT:
    case IDC_MESG_TRANSPARENT:
    case IDC_NO_BORDER:
      UpdateData(true);
      EnableButtons();
      break;
    case IDC_STATE_BG_COLOR: ChooseColor(StateBgColor); break;
    case IDC_MESG_BG_COLOR: ChooseColor(MesgBgColor); break;
    case IDC_BORDER_COLOR: ChooseColor(MesgBorderColor); break;
    case IDC_TEXT_STYLE: ChooseFont(); break;
    default: break;
  }
}

/// The dialog starts with whole points.
void CDefaultSettingDlg::ChooseFont() {
  constexpr std::int32_t tenthsPerPoint = 10;
  const auto chosen = Service<Dialogs>::Get().AskFont(
      {FontName, FontSize / tenthsPerPoint * tenthsPerPoint, FontColor});
  if (!chosen) return;
  FontName = chosen->face;
  FontSize = chosen->tenths;
  FontColor = chosen->color;
}

bool CDefaultSettingDlg::OnOk() {
  UpdateData(true);
  SaveSettings();
  return true;
}

void CDefaultSettingDlg::SaveSettings() const {
  const auto text = [](auto number) { return std::to_string(number); };
  Service<Profile>::Get().Write(kSection, {{"StateName", StateName},
                                           {"StateAnchor", text(StateAnchor)},
                                           {"Entry", Entry},
                                           {"Exit", Exit},
                                           {"StateBgTransparent", text(StateBgTransparent)},
                                           {"MesgAnchor", text(MesgAnchor)},
                                           {"MesgBorder", text(MesgBorder)},
                                           {"MesgBgTransparent", text(MesgBgTransparent)},
                                           {"ShowGrid", text(ShowGrid)},
                                           {"StateBgColor", text(StateBgColor)},
                                           {"MesgBorderColor", text(MesgBorderColor)},
                                           {"MesgBgColor", text(MesgBgColor)},
                                           {"LineColor", text(LineColor)},
                                           {"LineStyle", text(LineStyle)},
                                           {"FontName", FontName},
                                           {"FontSize", text(FontSize)},
                                           {"FontColor", text(FontColor)}});
}
