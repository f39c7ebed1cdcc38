// Sends made-up charts out as SCXML and reads them back: morvane_round_trip COUNT [FIRST]. What the
// chart that comes back does has to be what the first one did, step by step.

#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <sstream>

#include "exchange/ScxmlImport.h"
#include "generators/EmitterFor.h"
#include "machine/Machine.h"
#include "machine/MachineBuilder.h"
#include "tests/generators/rig/RandomChart.h"
#include "tests/generators/rig/Teller.h"

namespace morvane {

namespace {

constexpr int kEvents = 200;

/// The trace of a machine on events by their names.
std::string TraceOf(const Machine& machine, const std::vector<std::string>& events) {
  std::map<std::string, int> byName;
  for (int i = 0; i < std::ssize(machine.events); ++i) byName[machine.events[i].name] = i;
  std::vector<int> indices;
  for (const std::string& event : events) {
    const auto found = byName.find(event);
    if (found == byName.end()) return "The event " + event + " is gone\n";
    indices.push_back(found->second);
  }
  return Interpreted(machine, indices);
}

std::vector<std::string> MakeUpEvents(const Machine& machine, std::uint32_t seed) {
  std::mt19937 engine(seed);
  std::vector<std::string> events;
  for (int i = 0; i < kEvents && !machine.events.empty(); ++i) {
    events.push_back(machine.events[engine() % machine.events.size()].name);
  }
  return events;
}

/// The numbers of transitions are those of the chart only where the SCXML has them.
std::string WithoutNumbers(const std::string& trace) {
  std::istringstream in(trace);
  std::string result;
  for (std::string line; std::getline(in, line);) {
    result += (line.starts_with("take ") ? "take" : line) + '\n';
  }
  return result;
}

bool Compare(const Machine& machine, std::uint32_t seed, bool withTrace) {
  const std::string name = "Chart" + std::to_string(seed);
  const Emission out = EmitterFor(TargetLanguage::Xml)
                           ->Emit(machine, {.debug = withTrace, .modelFile = name, .stem = name});
  const ImportResult back = ImportScxml(out.files.front().content, name + ".scxml");
  const std::string which = name + (withTrace ? " with a trace" : "");
  if (!back.failure.empty() || !back.remarks.empty()) {
    std::cout << which << ": " << back.failure << '\n' << RemarkLines(name, back.remarks);
    return false;
  }
  const BuiltMachine built = MachineBuilder::FromText(back.modelText);
  if (!built.machine) {
    std::cout << which << ": " << FormatProblem(name, built.problems.front()) << '\n';
    return false;
  }
  const std::vector<std::string> events = MakeUpEvents(machine, seed);
  std::string before = TraceOf(machine, events);
  std::string after = TraceOf(*built.machine, events);
  if (!withTrace) {
    before = WithoutNumbers(before);
    after = WithoutNumbers(after);
  }
  if (before == after && !before.empty()) return true;
  std::cout << which << " does something else:\n" << before << "--- came back as\n" << after;
  return false;
}

bool GoRound(std::uint32_t seed) {
  const BuiltMachine built =
      MachineBuilder::FromText(RandomChart(seed).ModelText("Chart" + std::to_string(seed)));
  if (!built.machine) return false;
  const bool plain = Compare(*built.machine, seed, false);
  return Compare(*built.machine, seed, true) && plain;
}

}  // namespace

}  // namespace morvane

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const int count = std::atoi(argv[1]);
  const auto first = static_cast<std::uint32_t>(argc > 2 ? std::atol(argv[2]) : 1);
  int equal = 0;
  for (int i = 0; i < count; ++i) {
    if (morvane::GoRound(first + static_cast<std::uint32_t>(i))) ++equal;
  }
  std::cout << equal << " of " << count << " charts come back from SCXML with equal traces\n";
  return equal == count ? 0 : 1;
}
