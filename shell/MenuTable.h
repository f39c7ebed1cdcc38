#pragma once

#include <span>
#include <string_view>

// The menus, bars and keys of the program as plain data. A window builds its widgets from them; a
// new command is one row here and one handler at its target.

/// The maker's page on the web.
inline constexpr std::string_view kWebAddress = "https://morvane.halvern.example";

struct MenuEntry {
  unsigned id;            ///< a CommandId; 0 is a separator
  std::string_view text;  ///< with "&" before the mnemonic and a tab before the key
};

struct MenuPopup {
  std::string_view title;
  std::span<const MenuEntry> entries;
};

struct Accelerator {
  std::string_view key;  ///< "Ctrl+A"
  unsigned id;
};

/// The commands of a recent file list follow each other from ID_FILE_RECENT on, and the list
/// stands in the menu where that entry is.
bool IsRecentFileCommand(unsigned id);

/// The menu while no chart is open.
std::span<const MenuPopup> StartMenu();
/// The menu while a chart is active.
std::span<const MenuPopup> ChartMenu();
/// The popup of the frame and its bars: what can be shown and hidden.
std::span<const MenuEntry> BarMenu();
std::span<const Accelerator> Accelerators();

/// The buttons of a bar; 0 is a separator.
std::span<const unsigned> ToolBarButtons();
std::span<const unsigned> DrawingBarButtons();

/// What the status line says of a command; empty if it has nothing to say.
std::string_view CommandPrompt(unsigned id);
/// The tool tip of a command's button; empty if it has none.
std::string_view CommandToolTip(unsigned id);
