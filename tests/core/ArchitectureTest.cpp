#include <fstream>
#include <regex>

#include "tests/support/ChartTest.h"

namespace fs = std::filesystem;

namespace {

/// What sources in some folders must not include. Qt's headers are Q and a capital (`QWidget`), a
/// folder (`QtCore/...`) or q and `.h` (`qglobal.h`).
struct Rule {
  std::regex path;
  std::regex included;
  const char* complaint;
} const kRules[] = {
    {std::regex("(?!.*/qt/).*"),
     std::regex(R"(.(Qt.*|.*qt/.*|(.*/)?Q[A-Z][^/]*|(.*/)?q[^/]*\.h).)"), "toolkit"},
    {std::regex(".*"), std::regex(R"("(?!.*\.moc")[^/]*")"), "no path from the root"},
    {std::regex("(platform|resources)/.*"), std::regex("\"(?!platform/|resources/).*/.*"), "above"},
    {std::regex("recovery/.*"), std::regex("\"(?!platform/|resources/|recovery/).*/.*"), "above"}};

/// What is wrong with a line of a source, whose path is relative to the root; empty if nothing is.
std::string Complaint(const std::string& path, const std::string& line) {
  static const std::regex include(R"(\s*#\s*include\s*([<"][^>"]*[>"]).*)");
  std::smatch match;
  if (!std::regex_match(line, match, include)) return {};
  for (const Rule& rule : kRules) {
    if (!std::regex_match(path, rule.path)) continue;
    if (std::regex_match(match.str(1), rule.included)) return rule.complaint;
  }
  return {};
}

TEST(Architecture, LinesAreJudged) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"model/Shape.cpp", "#include <QWidget>", "toolkit"},
      {"model/Shape.cpp", " # include \"QString\"", "toolkit"},
      {"shell/App.h", "#include <QtCore/QObject>", "toolkit"},
      {"shell/App.h", "#include <qglobal.h>", "toolkit"},
      {"shell/App.cpp", "#include \"shell/qt/CMainFrame.h\"", "toolkit"},
      {"platform/CWnd.h", "#include \"model/Shape.h\"", "above"},
      {"platform/qt/View.cpp", "#include \"surface/LayoutMgr.h\"", "above"},
      {"resources/Texts.cpp", "#include \"shell/Menus.h\"", "above"},
      {"states/State.cpp", "#include \"State.h\"", "no path from the root"},
      {"platform/qt/View.cpp", "#include <QWidget>", ""},
      {"platform/CWnd.cpp", "#include \"resources/CommandIds.h\"", ""},
      {"model/Shape.cpp", "#include <queue>", ""},
      {"shell/qt/CMainFrame.cpp", "#include \"CMainFrame.moc\"", ""}};
  for (const auto& [path, line, complaint] : cases) {
    EXPECT_EQ(Complaint(path, line), complaint) << line;
  }
}

TEST(Architecture, SourcesKeepToTheirLevel) {
  const fs::path root = MORVANE_SOURCE_DIR;
  for (const char* room : {"platform", "resources", "recovery", "model", "states", "connectors",
                           "persistence", "surface", "dialogs", "codegen", "shell"}) {
    EXPECT_FALSE(fs::is_empty(root / room));
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      const auto extension = entry.path().extension();
      if (extension != ".h" && extension != ".cpp") continue;
      std::ifstream in(entry.path());
      for (std::string line; std::getline(in, line);) {
        const std::string path = fs::relative(entry.path(), root).generic_string();
        EXPECT_EQ(Complaint(path, line), "") << path << ": " << line;
      }
    }
  }
}

}  // namespace
