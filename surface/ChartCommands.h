#pragma once

#include "platform/Command.h"

namespace morvane {

class LayoutMgr;

/// The commands of a chart: everything that the user can tell the chart as a whole.
const CommandTable<LayoutMgr>& ChartCommands();

}  // namespace morvane
