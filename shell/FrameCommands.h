#pragma once

#include "platform/Command.h"

class FrameActions;

/// The commands of the main window: the files, the windows and the bars, settings and help.
const CommandTable<FrameActions>& FrameCommands();
