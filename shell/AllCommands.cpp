#include "shell/AllCommands.h"

#include <vector>

#include "shell/FrameCommands.h"
#include "surface/ChartCommands.h"
#include "surface/ObjectCommands.h"

namespace morvane {

namespace {

std::vector<const Command*> Collected() {
  std::vector<const Command*> commands;
  const auto add = [&commands](const auto& table) {
    for (const auto& row : table.Rows()) commands.push_back(&row.command);
  };
  add(ChartCommands());
  add(ObjectCommands());
  add(FrameCommands());
  return commands;
}

}  // namespace

std::span<const Command* const> AllCommands() {
  static const std::vector<const Command*> commands = Collected();
  return commands;
}

const Command& FindCommand(unsigned id) {
  static constexpr Command none;
  for (const Command* command : AllCommands()) {
    if (command->Has(id)) return *command;
  }
  return none;
}

}  // namespace morvane
