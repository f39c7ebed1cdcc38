#include "generators/NamePool.h"

#include <cctype>

#include "drawing/TextCodec.h"

namespace morvane {

bool IsIdentifierStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsIdentifierPart(char c) { return IsIdentifierStart(c) || (c >= '0' && c <= '9'); }

void NamePool::Reserve(std::span<const std::string_view> names) {
  for (const std::string_view name : names) Reserve(name);
}

void NamePool::ReserveFrom(std::string_view code) {
  for (std::size_t at = 0; at < code.size();) {
    std::size_t end = at;
    while (end < code.size() && IsIdentifierPart(code[end])) ++end;
    if (end > at) Reserve(code.substr(at, end - at));
    at = end + 1;
  }
}

std::string NamePool::Add(std::string_view wanted) {
  std::string name(wanted);
  if (IsTaken(name) && !name.ends_with('_')) name += '_';
  for (int number = 2; IsTaken(name); ++number) name = std::string(wanted) + std::to_string(number);
  Reserve(name);
  return name;
}

std::string CleanIdentifier(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  text = text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
  std::string name;
  if (text[0] >= '0' && text[0] <= '9') name = '_';
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = DecodeUtf8(text, at).length;
    name += IsIdentifierPart(text[at]) ? text[at] : '_';
    at += length == 0 ? 1 : length;
  }
  return name;
}

std::string MacroName(std::string_view name) {
  std::string macro;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const auto c = static_cast<unsigned char>(name[i]);
    const bool begins =
        std::isupper(c) != 0 && i > 0 && std::islower(static_cast<unsigned char>(name[i - 1])) != 0;
    if ((begins || c == '_') && !macro.empty() && macro.back() != '_') macro += '_';
    if (c != '_') macro += static_cast<char>(std::toupper(c));
  }
  while (macro.ends_with('_')) macro.pop_back();
  const bool isName = !macro.empty() && IsIdentifierStart(macro[0]);
  return isName ? macro : "MACHINE" + macro;
}

}  // namespace morvane
