#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// The names of one scope of generated code.
class NamePool {
 public:
  /// Keeps names away that others use.
  void Reserve(std::string_view name) { taken.emplace(name); }
  void Reserve(std::span<const std::string_view> names);
  /// Every identifier that a piece of code mentions.
  void ReserveFrom(std::string_view code);
  bool IsTaken(std::string_view name) const { return taken.contains(name); }
  /// `wanted`, or with as many `_` or a number behind it that nobody has it yet.
  std::string Add(std::string_view wanted);

 private:
  std::set<std::string, std::less<>> taken;
};

/// `text` with a `_` for every character that ASCII identifiers don't have, and one in front of a
/// digit; empty if there is nothing but blanks.
std::string CleanIdentifier(std::string_view text);
/// The name of a macro for an identifier: CASH_MACHINE for CashMachine.
std::string MacroName(std::string_view identifier);
bool IsIdentifierStart(char c);
bool IsIdentifierPart(char c);

}  // namespace morvane
