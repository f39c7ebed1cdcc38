#include "tests/scenarios/Scenario.h"
#include "tests/support/Places.h"

namespace morvane {

// What a user does with the program, tests/scenarios/*.txt. A section begins with "== " and its
// name; what the user does stands behind "> ", and all other lines are what comes of that. Files in
// a folder of a system's name are about that one. With the environment variable
// MORVANE_UPDATE_GOLDEN set, the tests write the files anew instead.

namespace {

namespace fs = std::filesystem;

struct Section {
  fs::path file;
  std::string name;
  std::string text;
};

void PrintTo(const Section& section, std::ostream* out) { *out << section.name; }

void ReadSections(const std::string& folder, std::vector<Section>& sections) {
  if (!fs::exists(folder)) return;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".txt") continue;
    std::ifstream in(entry.path());
    for (std::string line; std::getline(in, line);) {
      if (line.starts_with("== ")) {
        sections.push_back({entry.path(), line.substr(3), ""});
      } else if (!line.starts_with('#') && !line.empty()) {
        sections.back().text += line + "\n";
      }
    }
  }
}

std::vector<Section> AllSections() {
  std::vector<Section> sections;
  ReadSections(SourcePath("tests/scenarios"), sections);
  ReadSections(SourcePath("tests/scenarios/" MORVANE_SYSTEM), sections);
  return sections;
}

void Update(const Section& section, const std::string& played) {
  std::string text;
  EXPECT_TRUE(ReadWholeFile(section.file.string(), text).Ok());
  const std::size_t begin = text.find("== " + section.name + "\n") + section.name.size() + 4;
  const std::size_t end = std::min(text.find("\n== ", begin), text.size());
  WriteWholeFile(section.file.string(), text.replace(begin, end - begin, played));
}

class ScenarioTest : public testing::TestWithParam<Section> {};

TEST_P(ScenarioTest, GoesAsItIsTold) {
  std::deque<std::string> steps;
  std::istringstream in(GetParam().text);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("> ")) steps.push_back(line.substr(2));
  }
  const std::string played = Scenario(steps).Play();
  EXPECT_EQ(played, GetParam().text);
  if (std::getenv("MORVANE_UPDATE_GOLDEN") != nullptr) Update(GetParam(), played);
}

INSTANTIATE_TEST_SUITE_P(AUser, ScenarioTest, testing::ValuesIn(AllSections()),
                         [](const auto& info) {
                           std::string name =
                               info.param.file.stem().string() + "_" + info.param.name;
                           for (char& c : name)
                             c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
                           return name;
                         });

}  // namespace

}  // namespace morvane
