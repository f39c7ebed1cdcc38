#pragma once

#include "platform/Command.h"

namespace morvane {

class Shape;

/// The commands of a single object, which its context menu offers.
const CommandTable<Shape>& ObjectCommands();

}  // namespace morvane
