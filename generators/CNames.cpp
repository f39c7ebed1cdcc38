#include "generators/CNames.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "drawing/TextCodec.h"
#include "machine/Identifier.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

/// The words of C and C++, since a C++ program may include the header, that a name could be.
constexpr std::array<std::string_view, 99> kWords = {"alignas",
                                                     "alignof",
                                                     "and",
                                                     "and_eq",
                                                     "asm",
                                                     "auto",
                                                     "bitand",
                                                     "bitor",
                                                     "bool",
                                                     "break",
                                                     "case",
                                                     "catch",
                                                     "char",
                                                     "class",
                                                     "compl",
                                                     "concept",
                                                     "const",
                                                     "const_cast",
                                                     "consteval",
                                                     "constexpr",
                                                     "constinit",
                                                     "continue",
                                                     "co_await",
                                                     "co_return",
                                                     "co_yield",
                                                     "decltype",
                                                     "default",
                                                     "delete",
                                                     "do",
                                                     "double",
                                                     "dynamic_cast",
                                                     "else",
                                                     "enum",
                                                     "explicit",
                                                     "export",
                                                     "extern",
                                                     "false",
                                                     "float",
                                                     "for",
                                                     "friend",
                                                     "goto",
                                                     "if",
                                                     "inline",
                                                     "int",
                                                     "long",
                                                     "main",
                                                     "mutable",
                                                     "namespace",
                                                     "new",
                                                     "noexcept",
                                                     "not",
                                                     "not_eq",
                                                     "nullptr",
                                                     "operator",
                                                     "or",
                                                     "or_eq",
                                                     "private",
                                                     "protected",
                                                     "public",
                                                     "register",
                                                     "reinterpret_cast",
                                                     "requires",
                                                     "restrict",
                                                     "return",
                                                     "short",
                                                     "signed",
                                                     "sizeof",
                                                     "static",
                                                     "static_assert",
                                                     "static_cast",
                                                     "struct",
                                                     "switch",
                                                     "template",
                                                     "this",
                                                     "thread_local",
                                                     "throw",
                                                     "true",
                                                     "try",
                                                     "typedef",
                                                     "typeid",
                                                     "typename",
                                                     "typeof",
                                                     "union",
                                                     "unsigned",
                                                     "using",
                                                     "virtual",
                                                     "void",
                                                     "volatile",
                                                     "wchar_t",
                                                     "while",
                                                     "xor",
                                                     "xor_eq",
                                                     "size_t",
                                                     "uint8_t",
                                                     "uint16_t",
                                                     "int8_t",
                                                     "int16_t",
                                                     "linux",
                                                     "unix"};

std::string PrefixOf(std::string_view stem) {
  std::string name = Identifier::Clean(ToUtf8(stem), 'M');
  if (name.empty()) name = "Machine";
  if (std::ranges::find(kWords, name) != kWords.end()) name += '_';
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
    : machine(machine), prefix(PrefixOf(stem)), macro(prefix), none(NoneIn(machine)) {
  for (char& c : macro) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

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
