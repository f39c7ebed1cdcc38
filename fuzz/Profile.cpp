#include "platform/Profile.h"

#include <sstream>

#include "dialogs/CDefaultSettingDlg.h"
#include "drawing/NullDC.h"
#include "fuzz/AnyUser.h"
#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "model/Defaults.h"
#include "persistence/RecentFiles.h"
#include "resources/CommandIds.h"
#include "resources/TextSource.h"
#include "shell/Language.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"
#include "tests/support/FakeWindow.h"

namespace morvane {

// The values of the user's settings, whatever somebody wrote there: lines of "section/key=value",
// in which "\n" and "\r" are written with a backslash, and behind the first NUL what the user does
// in the dialog of the default settings. A new chart takes the settings and stays sound.

namespace {

std::string Unescape(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char next = i + 1 < text.size() ? text[i + 1] : ' ';
    const bool isBreak = text[i] == '\\' && (next == 'n' || next == 'r');
    plain += !isBreak ? text[i] : next == 'n' ? '\n' : '\r';
    if (isBreak) ++i;
  }
  return plain;
}

void Fill(MemoryProfile& profile, const std::string& lines) {
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    const std::size_t equals = std::min(line.find('='), line.size());
    const std::size_t slash = line.substr(0, equals).find('/');
    const std::string section = slash == std::string::npos ? "" : line.substr(0, slash);
    const std::size_t key = slash == std::string::npos ? 0 : slash + 1;
    const std::string value = equals < line.size() ? line.substr(equals + 1) : "";
    profile.WriteString(section, line.substr(key, equals - key), Unescape(value));
  }
}

/// Objects of every kind, made with the settings.
void DrawOneOfEach() {
  LayoutMgr chart;
  FakeWindow window(chart);
  chart.OnInitialUpdate();
  chart.ApplyZoom();
  for (unsigned tool = ID_TOOL_STATE; tool < ID_TOOL_STATE + 6; ++tool) {
    const POINT place{100 + 100 * static_cast<int>(tool - ID_TOOL_STATE), 200};
    window.cursorPos = place;
    chart.OnCommand(tool);
    chart.OnMouseMove(0, place);
    chart.OnLButtonUp(0, place);
  }
  Require(ChartFault(chart));
  Require(TextFault(chart));
  NullDC dc;
  chart.OnDraw(dc);
  const ChartPicture picture(chart);
  Require(!picture.MakeEmf().empty() && !picture.MakeSvg().empty(), "a picture is empty");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input = TextOf(data, size);
  const std::size_t lines = std::min(input.find('\0'), size);
  ByteSource source(data + lines, size - lines);
  const AnyUser user(source);
  MemoryProfile profile;
  Fill(profile, input.substr(0, lines));
  Profile* former = Service<Profile>::Set(&profile);
  LoadLanguage("");
  Defaults::Instance().Load();
  RecentFiles recent;
  recent.Load();
  recent.Add("chart.mrv");
  DrawOneOfEach();
  CDefaultSettingDlg::Instance().ShowDialog();
  DrawOneOfEach();
  Service<Profile>::Set(former);
  TextSource::Use(nullptr);
  return 0;
}

}  // namespace morvane
