#pragma once

#include "platform/Command.h"

namespace morvane {

class FrameActions;

/// The commands of the main window: the files, the windows and the bars, settings and help.
const CommandTable<FrameActions>& FrameCommands();

}  // namespace morvane
