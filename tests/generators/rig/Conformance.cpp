// Compares the traces of made-up charts in all languages that they become:
// morvane_conformance COUNT FOLDER [FIRST [SCXML_RUNNER [DESIGNER]]]
// With the designer also what it simulates, with the texts in its script engine, and whether it can
// replay the trace.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <sstream>

#include "generators/EmitterFor.h"
#include "machine/Machine.h"
#include "machine/MachineBuilder.h"
#include "tests/generators/rig/RandomChart.h"
#include "tests/generators/rig/RigLanguage.h"
#include "tests/generators/rig/Teller.h"

namespace morvane {

namespace {

namespace fs = std::filesystem;

constexpr int kEvents = 200;

void Write(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string Read(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

/// The scripts of SCXML work on what its data model declares.
std::string WithData(std::string scxml) {
  const std::size_t root = scxml.find('>', scxml.find("<scxml"));
  return scxml.insert(root + 1,
                      "\n  <datamodel><data id=\"n\" expr=\"0\"/><data id=\"m\" "
                      "expr=\"0\"/></datamodel>");
}

class Rig {
 public:
  Rig(fs::path folder, std::vector<RigLanguage> languages, std::string designer)
      : folder(std::move(folder)), languages(std::move(languages)), designer(std::move(designer)) {
    fs::remove_all(this->folder);
    for (const RigLanguage& language : this->languages) {
      fs::create_directories(this->folder / language.folder);
    }
  }

  bool Add(std::uint32_t seed) {
    RigChart chart{std::to_string(seed), "Chart" + std::to_string(seed), {}};
    const std::string text = RandomChart(seed).ModelText(chart.name);
    Write(folder / (chart.name + ".mrv"), text);
    const BuiltMachine built = MachineBuilder::FromText(text);
    for (const Problem& problem : built.problems) {
      if (problem.severity == Problem::Severity::Error || !built.machine) {
        std::cout << FormatProblem(chart.name + ".mrv", problem) << '\n';
      }
    }
    if (!built.machine) return false;
    WriteCode(*built.machine, chart);
    const std::vector<int> events = MakeUpEvents(*built.machine, seed);
    for (const int event : events) {
      chart.events.push_back(built.machine->events[static_cast<std::size_t>(event)].name);
    }
    interpreted[chart.number] = Interpreted(*built.machine, events);
    charts.push_back(std::move(chart));
    return true;
  }

  /// Runs everything; gives how many charts have different traces, or all if code doesn't compile.
  std::size_t Run() {
    std::string events;
    for (const RigChart& chart : charts) {
      events += chart.number + ' ' + chart.name + ".scxml";
      for (const std::string& event : chart.events) events += ' ' + event;
      events += '\n';
    }
    std::vector<std::map<std::string, std::string>> traces;
    for (const RigLanguage& language : languages) {
      if (language.mainFile.empty()) Write(folder / language.folder / "events.txt", events);
      if (!language.mainFile.empty()) {
        Write(folder / language.folder / language.mainFile, RigProgram(language.language, charts));
      }
      if (!Execute(language)) return charts.size();
      traces.push_back(Split(Read(folder / language.folder / "trace.txt")));
    }
    return Differences(traces);
  }

  std::size_t Lines() const { return lines; }

 private:
  void WriteCode(const Machine& machine, const RigChart& chart) {
    for (const RigLanguage& language : languages) {
      const Emission emission =
          EmitterFor(language.language)
              ->Emit(machine,
                     {.debug = true, .modelFile = chart.name + ".mrv", .stem = chart.name});
      for (const GeneratedFile& file : emission.files) {
        const bool scxml = language.language == TargetLanguage::Xml;
        Write(folder / language.folder / file.name, scxml ? WithData(file.content) : file.content);
      }
    }
  }

  static std::vector<int> MakeUpEvents(const Machine& machine, std::uint32_t seed) {
    std::mt19937 engine(seed);
    std::vector<int> events;
    for (int i = 0; i < kEvents && !machine.events.empty(); ++i) {
      events.push_back(static_cast<int>(engine() % machine.events.size()));
    }
    return events;
  }

  bool Execute(const RigLanguage& language) const {
    for (std::size_t i = 0; i < language.commands.size(); ++i) {
      const bool last = i + 1 == language.commands.size();
      const std::string command = "cd '" + (folder / language.folder).string() + "' && " +
                                  language.commands[i] + (last ? " >trace.txt" : "");
      if (std::system(command.c_str()) == 0) continue;
      std::cout << "This failed: " << command << '\n';
      return false;
    }
    return true;
  }

  static std::map<std::string, std::string> Split(const std::string& output) {
    std::map<std::string, std::string> traces;
    std::istringstream in(output);
    std::string number;
    for (std::string line; std::getline(in, line);) {
      if (line.starts_with("== ")) {
        number = line.substr(3);
      } else {
        traces[number] += line + '\n';
      }
    }
    return traces;
  }

  /// What of the designer's own runs is not as expected; empty for nothing.
  std::string DesignerDifferences(const RigChart& chart) const {
    if (designer.empty()) return {};
    const std::string file = '\'' + (folder / (chart.name + ".mrv")).string() + '\'';
    const fs::path simulated = folder / (chart.name + ".simulated.txt");
    std::string command = '\'' + designer + "' --simulate " + file;
    for (const std::string& event : chart.events) command += ' ' + event;
    const bool ran = std::system((command + " >'" + simulated.string() + '\'').c_str()) == 0;
    const bool same = ran && Read(simulated) == interpreted.at(chart.number);
    const std::string replay = '\'' + designer + "' --replay '" + simulated.string() + "' " + file;
    const bool follows = std::system(replay.c_str()) == 0;
    if (same && follows) fs::remove(simulated);
    return std::string(same ? "" : " simulated") + (follows ? "" : " replayed");
  }

  std::size_t Differences(std::vector<std::map<std::string, std::string>>& traces) {
    std::size_t different = 0;
    for (const RigChart& chart : charts) {
      const std::string& expected = interpreted[chart.number];
      lines += static_cast<std::size_t>(std::count(expected.begin(), expected.end(), '\n'));
      std::string others;
      for (std::size_t i = 0; i < traces.size(); ++i) {
        if (traces[i][chart.number] == expected && !expected.empty()) continue;
        others += ' ' + languages[i].folder;
        Write(folder / (chart.name + '.' + languages[i].folder + ".txt"), traces[i][chart.number]);
      }
      others += DesignerDifferences(chart);
      if (others.empty()) continue;
      Write(folder / (chart.name + ".interpreter.txt"), expected);
      std::cout << "Chart " << chart.number << ": not as the interpreter has it:" << others << '\n';
      ++different;
    }
    return different;
  }

  fs::path folder;
  std::vector<RigLanguage> languages;
  std::string designer;  ///< a program; empty for none
  std::vector<RigChart> charts;
  std::map<std::string, std::string> interpreted;  ///< traces by number
  std::size_t lines = 0;
};

int Compare(int count, const fs::path& folder, std::uint32_t first, const std::string& runner,
            const std::string& designer) {
  const std::vector<RigLanguage> languages = RigLanguages(runner);
  std::size_t different = 0;
  std::size_t lines = 0;
  constexpr int kBatch = 100;
  for (int begin = 0; begin < count; begin += kBatch) {
    Rig rig(folder, languages, designer);
    for (int i = begin; i < std::min(count, begin + kBatch); ++i) {
      if (!rig.Add(first + static_cast<std::uint32_t>(i))) ++different;
    }
    if (different == 0) different += rig.Run();
    lines += rig.Lines();
    if (different > 0) break;
  }
  std::cout << count << " charts in " << languages.size() << " languages, interpreted"
            << (designer.empty() ? "" : ", simulated and replayed") << ", " << kEvents
            << " events each, " << lines << " lines of trace: " << different
            << " with a difference\n";
  return different == 0 ? 0 : 1;
}

}  // namespace

}  // namespace morvane

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const auto first = static_cast<std::uint32_t>(argc > 3 ? std::atol(argv[3]) : 1);
  return morvane::Compare(std::atoi(argv[1]), std::filesystem::absolute(argv[2]), first,
                          argc > 4 ? argv[4] : "", argc > 5 ? argv[5] : "");
}
