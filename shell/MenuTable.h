#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Command.h"

namespace morvane {

// What stands where in the menus and bars of the program. What a command shows and does is in the
// tables that AllCommands.h joins.

/// The menu while no chart is open.
std::span<const MenuPopup> StartMenu();
/// The menu while a chart is active.
std::span<const MenuPopup> ChartMenu();
/// The popup of the frame and its bars: what can be shown and hidden.
std::span<const MenuEntry> BarMenu();
/// An entry, or a menu within a menu, as it shows in the present language, with its key behind a
/// tab.
std::string MenuText(const MenuEntry& entry);

/// The buttons of a bar; 0 is a separator.
std::span<const unsigned> ToolBarButtons();
std::span<const unsigned> DrawingBarButtons();

}  // namespace morvane
