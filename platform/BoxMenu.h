#pragma once

#include <array>
#include <string_view>

namespace morvane {

/// What the context menu of a box of code offers.
enum class BoxCommand : unsigned { Undo = 1, Redo, Cut, Copy, Paste, Delete, SelectAll };

struct BoxMenuEntry {
  BoxCommand command;
  std::string_view text;  ///< English
  std::string_view key;
};

/// In their order; each that ends a group of the menu is listed in `EndsGroup`.
inline constexpr std::array kBoxMenu = {
    BoxMenuEntry{BoxCommand::Undo, "&Undo", "Ctrl+Z"},
    BoxMenuEntry{BoxCommand::Redo, "&Redo", "Ctrl+Y"},
    BoxMenuEntry{BoxCommand::Cut, "Cu&t", "Ctrl+X"},
    BoxMenuEntry{BoxCommand::Copy, "&Copy", "Ctrl+C"},
    BoxMenuEntry{BoxCommand::Paste, "&Paste", "Ctrl+V"},
    BoxMenuEntry{BoxCommand::Delete, "Delete", "Del"},
    BoxMenuEntry{BoxCommand::SelectAll, "Select &All", "Ctrl+A"},
};

constexpr bool EndsGroup(BoxCommand command) {
  return command == BoxCommand::Redo || command == BoxCommand::Delete;
}

}  // namespace morvane
