#include <cctype>
#include <fstream>
#include <string_view>

#include "tests/support/ChartTest.h"

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> kRooms = {"platform",   "resources",   "model",   "states",
                                         "connectors", "persistence", "surface", "dialogs",
                                         "codegen",    "shell"};

bool IsToolkitFolder(const std::string& path) { return path.find("/qt/") != std::string::npos; }

bool IsLowest(const std::string& room) { return room == "platform" || room == "resources"; }

/// The name between the brackets or quotes of an include line, with its opening mark before it;
/// empty for any other line.
std::string IncludedBy(const std::string& line) {
  std::string text = line;
  std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
  constexpr std::string_view directive = "#include";
  if (text.rfind(directive, 0) != 0) return {};
  text.erase(0, directive.size());
  const auto end = text.find_first_of(">\"", 1);
  const bool isWhole = !text.empty() && (text[0] == '<' || text[0] == '"');
  return isWhole && end != std::string::npos ? text.substr(0, end) : std::string();
}

/// Qt's headers are Q and a capital (`QWidget`), a folder (`QtCore/...`) or q and `.h`
/// (`qglobal.h`).
bool IsToolkitHeader(const std::string& name) {
  const std::string last = name.substr(name.rfind('/') + 1);
  if (name.rfind("Qt", 0) == 0) return true;
  const bool isClass = last.size() > 1 && last[0] == 'Q' && std::isupper(last[1]) != 0;
  return isClass || (last[0] == 'q' && last.ends_with(".h"));
}

/// What is wrong with a line of a source, by the levels of the folders; empty if nothing is.
/// `path` is relative to the root, with slashes.
std::string Complaint(const std::string& path, const std::string& line) {
  const std::string included = IncludedBy(line);
  if (included.empty()) return {};
  const bool isOurs = included[0] == '"';
  const std::string name = included.substr(1);
  if (!IsToolkitFolder(path)) {
    if (IsToolkitHeader(name)) return "includes the toolkit";
    if (name.find("qt/") != std::string::npos) return "includes a header of a toolkit folder";
  }
  if (!isOurs || name.ends_with(".moc")) return {};
  const auto slash = name.find('/');
  if (slash == std::string::npos) return "includes without the path from the root";
  const std::string room = path.substr(0, path.find('/'));
  if (IsLowest(room) && !IsLowest(name.substr(0, slash))) return "reaches above its level";
  return {};
}

std::vector<std::string> ComplaintsOf(const fs::path& root, const fs::path& file) {
  std::vector<std::string> complaints;
  const std::string path = fs::relative(file, root).generic_string();
  std::ifstream in(file);
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    const std::string complaint = Complaint(path, line);
    if (!complaint.empty())
      complaints.push_back(path + ":" + std::to_string(number) + ": " + complaint);
  }
  return complaints;
}

std::vector<fs::path> Sources(const fs::path& root) {
  std::vector<fs::path> sources;
  for (const std::string& room : kRooms) {
    EXPECT_FALSE(fs::is_empty(root / room));
    for (const auto& entry : fs::recursive_directory_iterator(root / room)) {
      const auto extension = entry.path().extension();
      if (extension == ".h" || extension == ".cpp") sources.push_back(entry.path());
    }
  }
  return sources;
}

TEST(Architecture, SourcesKeepToTheirLevel) {
  const fs::path root = MORVANE_SOURCE_DIR;
  for (const auto& file : Sources(root)) {
    for (const auto& complaint : ComplaintsOf(root, file)) ADD_FAILURE() << complaint;
  }
}

TEST(Architecture, LinesAreJudged) {
  constexpr const char* toolkit = "includes the toolkit";
  constexpr const char* above = "reaches above its level";
  const struct {
    const char* path;
    const char* line;
    const char* complaint;
  } cases[] = {
      {"model/Shape.cpp", "#include <QWidget>", toolkit},
      {"model/Shape.cpp", " # include \"QString\"", toolkit},
      {"shell/App.h", "#include <QtCore/QObject>", toolkit},
      {"shell/App.h", "#include <qglobal.h>", toolkit},
      {"shell/App.cpp", "#include \"shell/qt/CMainFrame.h\"",
       "includes a header of a toolkit folder"},
      {"platform/CWnd.h", "#include \"model/Shape.h\"", above},
      {"platform/qt/View.cpp", "#include \"surface/LayoutMgr.h\"", above},
      {"resources/Texts.cpp", "#include \"shell/Menus.h\"", above},
      {"states/State.cpp", "#include \"State.h\"", "includes without the path from the root"},
      {"platform/qt/View.cpp", "#include <QWidget>", ""},
      {"shell/qt/CMainFrame.cpp", "#include \"shell/qt/CMainFrame.h\"", ""},
      {"platform/CWnd.cpp", "#include \"resources/CommandIds.h\"", ""},
      {"model/Shape.cpp", "#include <queue>", ""},
      {"shell/qt/CMainFrame.cpp", "#include \"CMainFrame.moc\"", ""},
      {"model/Shape.cpp", "#include \"platform/CDC.h\"", ""},
      {"model/Shape.cpp", "// see <QWidget>", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Complaint(c.path, c.line), c.complaint) << c.path << ": " << c.line;
  }
}

}  // namespace
