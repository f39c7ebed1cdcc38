#include "generators/CNames.h"

#include <algorithm>
#include <array>
#include <span>

#include "drawing/TextCodec.h"
#include "generators/ClassFacts.h"
#include "generators/NamePool.h"
#include "machine/Identifier.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

/// What a name can't be beside the words of C++, as a C++ program may include the header.
constexpr std::array<std::string_view, 9> kMoreWords = {
    "main", "restrict", "typeof", "size_t", "int8_t", "uint8_t", "int16_t", "uint16_t", "uint32_t"};

bool IsWord(std::string_view name) {
  const std::span<const std::string_view> words = CppFacts().words;
  return std::ranges::find(words, name) != words.end() ||
         std::ranges::find(kMoreWords, name) != kMoreWords.end();
}

std::string PrefixOf(std::string_view stem) {
  std::string name = Identifier::Clean(ToUtf8(stem), 'M');
  if (name.empty()) name = "Machine";
  if (IsWord(name)) name += '_';
  return name;
}

/// What stands for no state: a word that no state has.
std::string NoneIn(const Machine& machine) {
  std::string none = "None";
  while (std::ranges::find(machine.states, none, &MachineState::name) != machine.states.end()) {
    none += '_';
  }
  return none;
}

}  // namespace

CNames::CNames(const Machine& machine, std::string_view stem)
    : machine(machine), prefix(PrefixOf(stem)), macro(MacroName(prefix)), none(NoneIn(machine)) {}

std::string CNames::StateConstant(int state) const {
  if (state == MachineState::kChart) return Type("State_") + none;
  return Type("State_") + machine.states[static_cast<std::size_t>(state)].name;
}

std::string CNames::EventConstant(int event) const {
  return Type("Event_") + machine.events[static_cast<std::size_t>(event)].name;
}

std::string CNames::Of(std::string_view what, int state) const {
  return std::string(what) + '_' + machine.states[static_cast<std::size_t>(state)].name;
}

std::string CNames::OfTransition(std::string_view what, int transition) const {
  std::string id = std::to_string(machine.transitions[static_cast<std::size_t>(transition)].id);
  if (id.front() == '-') id.front() = 'm';
  return std::string(what) + '_' + id;
}

}  // namespace morvane
