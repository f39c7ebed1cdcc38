#include "tests/generators/MachineSketch.h"

#include <algorithm>
#include <stdexcept>

#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

namespace {

constexpr int kFirstBox = 10'000;
constexpr int kFirstMark = 20'000;
constexpr int kFirstMessage = 30'000;

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

}  // namespace

MachineSketch& MachineSketch::State(const std::string& name, const std::string& parent,
                                    const std::string& entry, const std::string& exit) {
  const int made = Add(parent, name);
  boxes[made].lines = "state " + std::to_string(kFirstBox + made) + ' ' + name + '\n';
  if (!entry.empty()) boxes[made].lines += "entry " + entry + '\n';
  if (!exit.empty()) boxes[made].lines += "exit " + exit + '\n';
  return *this;
}

MachineSketch& MachineSketch::Final(const std::string& parent) {
  const int made = Add(parent, "Final");
  boxes[made].lines = "final " + std::to_string(kFirstBox + made) + '\n';
  return *this;
}

MachineSketch& MachineSketch::History(const std::string& name) {
  boxes[Find(name)].lines += "history\n";
  return *this;
}

MachineSketch& MachineSketch::Initial(const std::string& source, const std::string& target,
                                      const std::string& effect) {
  const int mark = kFirstMark + transitions;
  const int made = Add(source, "");
  boxes[made].lines = "initial " + std::to_string(mark) + '\n';
  AddTransition(mark, target, " |  | " + effect);
  return *this;
}

MachineSketch& MachineSketch::On(const std::string& source, const std::string& events,
                                 const std::string& target, const std::string& guard,
                                 const std::string& effect) {
  AddTransition(kFirstBox + Find(source), target,
                Replaced(events, " ", ", ") + " | " + guard + " | " + effect);
  return *this;
}

Machine MachineSketch::Build() const {
  const BuiltMachine built =
      MachineBuilder::FromText(ChartSketch(Lines(boxes[0].inner, "") + arrows));
  if (!built.machine) throw std::invalid_argument(built.problems.front().message);
  Machine machine = *built.machine;
  machine.properties = {};
  machine.propertyLines = {};
  return machine;
}

int MachineSketch::Find(const std::string& name) const {
  const auto found = std::ranges::find(boxes, name, &Box::name);
  if (found == boxes.end()) throw std::invalid_argument("no state " + name);
  return static_cast<int>(found - boxes.begin());
}

int MachineSketch::Add(const std::string& parent, const std::string& name) {
  const int made = static_cast<int>(boxes.size());
  boxes[Find(parent)].inner.push_back(made);
  boxes.push_back({name, {}, {}});
  return made;
}

void MachineSketch::AddTransition(int source, const std::string& target,
                                  const std::string& message) {
  const std::string id = std::to_string(++transitions);
  arrows += "arrow " + id + ' ' + std::to_string(source) + ' ' +
            std::to_string(kFirstBox + Find(target)) + "\nmessage " +
            std::to_string(kFirstMessage + transitions) + ' ' + id + ' ' +
            Replaced(message, "\n", "\\n") + '\n';
}

std::string MachineSketch::Lines(const std::vector<int>& inside, const std::string& indent) const {
  std::string lines;
  for (const int box : inside) {
    lines += indent + boxes[box].lines + Lines(boxes[box].inner, indent + "  ");
  }
  return lines;
}

}  // namespace morvane
