#include "resources/TextLibrary.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::string_view kMark = "Morvane texts\t";

/// The part up to the next line end, which is taken off `rest`.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    switch (const char letter = text[++i]) {
      case 'n': plain += '\n'; break;
      case 't': plain += '\t'; break;
      default: plain += letter; break;
    }
  }
  return plain;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The places of a text that the program fills. Those that are told apart by their numbers, such as
/// "%1", may stand in any order; those with a format, such as "%2.1f", stand as they are filled.
std::vector<std::string_view> Places(std::string_view text) {
  std::vector<std::string_view> places;
  bool isOrdered = false;
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
    if (at + 1 == text.size() || !IsDigit(text[at + 1])) continue;
    constexpr std::size_t numberLength = 2;
    constexpr std::size_t formatLength = 5;
    const bool isFormat = at + formatLength <= text.size() && text[at + numberLength] == '.' &&
                          IsDigit(text[at + numberLength + 1]);
    isOrdered = isOrdered || isFormat;
    places.push_back(text.substr(at, isFormat ? formatLength : numberLength));
  }
  if (!isOrdered) std::ranges::sort(places);
  return places;
}

bool HasLineBreak(std::string_view text) { return text.find('\n') != std::string_view::npos; }

/// False for a text whose places differ from those of the English one: filling it would go wrong.
/// An empty text says nothing, nor does what stands behind a NUL, and one line may become a name,
/// which has to stay one.
bool CanStandFor(std::string_view english, std::string_view text) {
  const bool isText = !text.empty() && text.find('\0') == std::string_view::npos;
  return isText && (HasLineBreak(english) || !HasLineBreak(text)) &&
         Places(english) == Places(text);
}

bool CanStandFor(unsigned id, std::string_view text) {
  const auto english = EnglishTexts();
  const auto found = std::ranges::find(english, id, &EnglishText::id);
  return found == english.end() || CanStandFor(found->text, text);
}

}  // namespace

bool TextLibrary::Read(std::string_view bytes) {
  const std::string_view first = TakeLine(bytes);
  if (!first.starts_with(kMark)) return false;
  texts.clear();
  translations.clear();
  locale = first.substr(kMark.size());
  while (!bytes.empty()) ReadLine(TakeLine(bytes));
  return true;
}

void TextLibrary::ReadLine(std::string_view line) {
  const std::size_t tab = line.find('\t');
  if (line.starts_with('#') || tab == std::string_view::npos) return;
  const std::string_view key = line.substr(0, tab);
  const std::string text = Unescape(line.substr(tab + 1));
  unsigned id = 0;
  const auto [stop, error] = std::from_chars(key.data(), key.data() + key.size(), id);
  if (error == std::errc() && stop == key.data() + key.size()) {
    if (CanStandFor(id, text)) texts[id] = text;
  } else {
    const std::string english = Unescape(key);
    if (CanStandFor(english, text)) translations[english] = text;
  }
}

std::optional<std::string> TextLibrary::Text(unsigned id) const {
  const auto found = texts.find(id);
  if (found == texts.end()) return std::nullopt;
  return found->second;
}

std::optional<std::string> TextLibrary::Translation(std::string_view english) const {
  const auto found = translations.find(english);
  if (found == translations.end()) return std::nullopt;
  return found->second;
}

}  // namespace morvane
