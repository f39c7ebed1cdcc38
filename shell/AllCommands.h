#pragma once

#include <span>

#include "platform/Command.h"

namespace morvane {

// What the user sees of every command of the program, out of the tables of all its targets.

std::span<const Command* const> AllCommands();
/// One without any text for an id that isn't a command.
const Command& FindCommand(unsigned id);

}  // namespace morvane
