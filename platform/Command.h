#pragma once

#include <algorithm>
#include <span>
#include <string_view>

namespace morvane {

/// What a menu or a bar shows of a command now.
struct CommandState {
  bool handled = false;  ///< the target knows the command
  bool enabled = false;
  bool checked = false;
  static CommandState Enabled(bool on) { return {true, on, false}; }
  static CommandState Checked(bool on) { return {true, true, on}; }
};

/// What the user sees of a command. All texts are in English.
struct Command {
  unsigned id = 0;
  std::string_view text = {};  ///< in a menu, with "&" before the mnemonic; empty if it is in none
  std::string_view keys = {};  ///< "Ctrl+Z Alt+Backspace"; a menu shows the first one
  std::string_view prompt = {};   ///< what the status line says of it
  std::string_view toolTip = {};  ///< of its button
  std::string_view icon = {};     ///< the name of its picture
  unsigned count = 1;             ///< so many ids, from `id` on, are this command

  bool Has(unsigned other) const { return other - id < count; }
  std::string_view FirstKey() const { return keys.substr(0, keys.find(' ')); }
};

struct MenuPopup;

/// An entry of a menu: a command, a menu of its own, or neither for a separator.
struct MenuEntry {
  unsigned id = 0;
  std::string_view ownText = {};  ///< where this menu calls the command something else
  const MenuPopup* popup = nullptr;

  bool IsSeparator() const { return id == 0 && popup == nullptr; }
  std::string_view TextOf(const Command& command) const {
    return ownText.empty() ? command.text : ownText;
  }
};

/// A menu with its title, in English.
struct MenuPopup {
  std::string_view title;
  std::span<const MenuEntry> entries;
};

/// A command of one kind of target: what the user sees of it, when it can be given, and what it
/// does. Both functions get the id, for those that several commands share.
template <class Target>
struct CommandRow {
  Command command;
  CommandState (*state)(const Target& target, unsigned id);
  void (*run)(Target& target, unsigned id);
};

/// All commands of one kind of target. A command stands in one table only, so that whoever passes
/// it from target to target asks only the one that knows it.
template <class Target>
class CommandTable {
 public:
  explicit constexpr CommandTable(std::span<const CommandRow<Target>> rows) : rows(rows) {}

  std::span<const CommandRow<Target>> Rows() const { return rows; }
  /// Null for a command of another table.
  const CommandRow<Target>* Find(unsigned id) const {
    const auto found =
        std::ranges::find_if(rows, [id](const auto& row) { return row.command.Has(id); });
    return found != rows.end() ? &*found : nullptr;
  }
  CommandState StateOf(const Target& target, unsigned id) const {
    const CommandRow<Target>* row = Find(id);
    return row != nullptr ? row->state(target, id) : CommandState{};
  }
  /// Carries a command out; false when it isn't in the table or it is disabled.
  bool Run(Target& target, unsigned id) const {
    const CommandRow<Target>* row = Find(id);
    if (row == nullptr || !row->state(target, id).enabled) return false;
    row->run(target, id);
    return true;
  }

 private:
  std::span<const CommandRow<Target>> rows;
};

}  // namespace morvane
