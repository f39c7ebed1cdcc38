#include <fstream>
#include <map>
#include <regex>
#include <set>

#include "tests/support/ChartTest.h"
#include "tests/support/Places.h"

namespace morvane {

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
    {std::regex("(?!.*/(posix|windows|qt)/).*"),
     std::regex(R"(.(.*/(posix|windows)/.*|windows\.h|unistd\.h|fcntl\.h|sys/.*).)"),
     "of one system"}};

/// What each folder may include beside itself, from the ground floor up.
const std::map<std::string, std::set<std::string>> kFloors = {
    {"resources", {}},
    {"drawing", {}},
    {"layout", {"drawing"}},
    {"platform", {"drawing"}},
    {"recovery", {"resources", "platform"}},
    {"model", {"resources", "drawing", "platform"}},
    {"states", {"resources", "drawing", "platform", "model"}},
    {"connectors", {"resources", "drawing", "platform", "model", "states"}},
    {"persistence", {"resources", "drawing", "platform", "model", "recovery"}},
    {"machine",
     {"resources", "drawing", "platform", "model", "states", "connectors", "persistence"}},
    {"generators", {"resources", "drawing", "platform", "model", "machine"}},
    {"simulation", {"resources", "drawing", "platform", "machine"}},
    {"surface",
     {"resources", "drawing", "layout", "platform", "model", "states", "connectors",
      "persistence"}},
    {"dialogs", {"resources", "drawing", "platform", "model", "states", "connectors"}},
    {"codegen", {"resources", "drawing", "platform", "model", "persistence", "surface"}},
    {"checks",
     {"resources", "drawing", "platform", "model", "states", "connectors", "machine", "surface"}},
    {"exchange",
     {"resources", "drawing", "layout", "platform", "model", "states", "connectors", "persistence",
      "machine", "surface"}},
    {"review",
     {"resources", "drawing", "platform", "model", "states", "connectors", "persistence", "machine",
      "surface"}},
    {"shell",
     {"resources", "drawing", "platform", "recovery", "model", "states", "connectors",
      "persistence", "machine", "generators", "simulation", "surface", "dialogs", "codegen",
      "checks", "exchange", "review"}}};

/// The name of a path's first folder.
std::string FolderOf(const std::string& path) { return path.substr(0, path.find('/')); }

bool PointsUp(const std::string& path, const std::string& included) {
  const std::string from = FolderOf(path);
  const std::string to = FolderOf(included);
  const auto floor = kFloors.find(from);
  return floor != kFloors.end() && kFloors.contains(to) && to != from &&
         !floor->second.contains(to);
}

/// What is wrong with a line of a source, whose path is relative to the root; empty if nothing is.
std::string Complaint(const std::string& path, const std::string& line) {
  static const std::regex include(R"(\s*#\s*include\s*([<"][^>"]*[>"]).*)");
  std::smatch match;
  if (!std::regex_match(line, match, include)) return {};
  for (const Rule& rule : kRules) {
    if (!std::regex_match(path, rule.path)) continue;
    if (std::regex_match(match.str(1), rule.included)) return rule.complaint;
  }
  if (PointsUp(path, match.str(1).substr(1))) return "above";
  return {};
}

TEST(Architecture, LinesAreJudged) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"model/Shape.cpp", "#include <QWidget>", "toolkit"},
      {"shell/App.h", "#include <qglobal.h>", "toolkit"},
      {"shell/App.cpp", "#include \"shell/qt/CMainFrame.h\"", "toolkit"},
      {"platform/CWnd.h", "#include \"model/Shape.h\"", "above"},
      {"platform/qt/View.cpp", "#include \"surface/LayoutMgr.h\"", "above"},
      {"platform/qt/LineBox.cpp", "#include \"resources/Texts.h\"", "above"},
      {"states/State.cpp", "#include \"State.h\"", "no path from the root"},
      {"platform/Files.cpp", "#include \"platform/posix/PosixFile.h\"", "of one system"},
      {"recovery/RecoveryStore.cpp", "#include <unistd.h>", "of one system"},
      {"platform/windows/FileLock.cpp", "#include <windows.h>", ""},
      {"platform/qt/View.cpp", "#include <QWidget>", ""},
      {"platform/CWnd.cpp", "#include \"drawing/Geometry.h\"", ""},
      {"model/Shape.cpp", "#include <queue>", ""},
      {"shell/qt/CMainFrame.cpp", "#include \"CMainFrame.moc\"", ""}};
  for (const auto& [path, line, complaint] : cases) {
    EXPECT_EQ(Complaint(path, line), complaint) << line;
  }
}

TEST(Architecture, SourcesKeepToTheirLevel) {
  const fs::path root = SourcePath(".");
  for (const auto& [room, below] : kFloors) {
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

}  // namespace morvane
