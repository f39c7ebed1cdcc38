#pragma once

#include <functional>
#include <span>

#include "drawing/Geometry.h"
#include "platform/Command.h"

namespace morvane {

class Shape;

/// The context menu of an object, by its class; empty for a class that has none.
std::span<const MenuEntry> MenuOf(const Shape* shape);
/// The context menu of the chart itself.
std::span<const MenuEntry> MenuOfChart();

/// Tells whether a command can be given.
using StateOfCommand = std::function<CommandState(unsigned id)>;
/// The command that opens a dialog on an object: its properties, or else what it says and does.
unsigned EditorOf(const Shape& shape, bool properties);

/// Shows a context menu at a screen point and waits; gives the chosen command, or 0.
unsigned TrackContextMenu(std::span<const MenuEntry> menu, POINT screen,
                          const StateOfCommand& stateOf);

}  // namespace morvane
