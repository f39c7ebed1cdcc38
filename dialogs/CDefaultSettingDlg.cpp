#include "dialogs/CDefaultSettingDlg.h"

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

CDefaultSettingDlg::CDefaultSettingDlg() { LoadSettings(); }

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
