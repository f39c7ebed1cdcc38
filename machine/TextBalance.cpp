#include "machine/TextBalance.h"

#include <algorithm>
#include <vector>

#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::string_view kOpening = "([{";
constexpr std::string_view kClosing = ")]}";
constexpr std::size_t kNowhere = std::string_view::npos;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsWordPart(char c) {
  return IsDigit(c) || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string Bracket(char bracket) { return Said("a \"%1\"", {std::string(1, bracket)}); }

std::string Quote() { return Translate("a quote"); }

/// What stands in front of a raw string.
bool IsRawPrefix(std::string_view word) {
  return word == "R" || word == "LR" || word == "uR" || word == "UR" || word == "u8R";
}

class Scan {
 public:
  explicit Scan(std::string_view code) : code(code) {}

  std::optional<TextFault> Run();

 private:
  bool Sees(std::string_view text) const { return code.substr(at).starts_with(text); }
  bool Step();
  bool SkipTo(std::string_view end, std::size_t from, const std::string& what);
  bool SkipQuote();
  bool SkipPlainQuote(bool mayBreak);
  bool SkipDoubledQuote();
  bool Close(char bracket);
  bool Fault(std::size_t position, std::string what, bool isOpen);

  std::string_view code;
  std::size_t at = 0;
  std::size_t wordStart = 0;  ///< of the word or number that ends at `at`; `at` if there is none
  std::vector<std::size_t> brackets;
  std::optional<TextFault> fault;
};

std::optional<TextFault> Scan::Run() {
  while (at < code.size()) {
    if (!Step()) return fault;
  }
  if (!brackets.empty()) Fault(brackets.back(), Bracket(code[brackets.back()]), true);
  return fault;
}

/// Goes behind the next piece; false at a fault.
bool Scan::Step() {
  const char c = code[at];
  if (IsWordPart(c)) {
    ++at;
    return true;
  }
  const bool separatesDigits = c == '\'' && wordStart < at && IsDigit(code[wordStart]);
  if (separatesDigits) {
    ++at;
    return true;
  }
  bool holds = true;
  if (Sees("//")) {
    at = std::min(code.find('\n', at), code.size());
  } else if (Sees("/*")) {
    holds = SkipTo("*/", at + 2, Translate("a comment"));
  } else if (c == '"') {
    holds = SkipQuote();
  } else if (c == '\'' || c == '`') {
    holds = SkipPlainQuote(c == '`');
  } else {
    if (kOpening.find(c) != kNowhere) brackets.push_back(at);
    if (kClosing.find(c) != kNowhere) holds = Close(c);
    ++at;
  }
  wordStart = at;
  return holds;
}

bool Scan::SkipTo(std::string_view end, std::size_t from, const std::string& what) {
  const std::size_t found = code.find(end, std::min(from, code.size()));
  if (found == kNowhere) return Fault(at, what, true);
  at = found + end.size();
  return true;
}

/// A string: plain, verbatim (@"..."), raw (R"(...)") or between three quotes.
bool Scan::SkipQuote() {
  const std::string_view word = code.substr(wordStart, at - wordStart);
  if (IsRawPrefix(word)) {
    const std::size_t bracket = code.find('(', at);
    if (bracket == kNowhere) return Fault(at, Quote(), true);
    const std::string end = ')' + std::string(code.substr(at + 1, bracket - at - 1)) + '"';
    return SkipTo(end, bracket + 1, Quote());
  }
  const std::string_view before = code.substr(0, at);
  if (before.ends_with('@') || before.ends_with("@$")) return SkipDoubledQuote();
  constexpr std::string_view three = "\"\"\"";
  if (Sees(three) && code.find(three, at + three.size()) != kNowhere) {
    return SkipTo(three, at + three.size(), Quote());
  }
  return SkipPlainQuote(false);
}

/// A string or character with escapes, which ends in its line unless it `mayBreak`.
bool Scan::SkipPlainQuote(bool mayBreak) {
  const char quote = code[at];
  for (std::size_t i = at + 1; i < code.size(); ++i) {
    if (code[i] == quote) {
      at = i + 1;
      return true;
    }
    if (code[i] == '\n' && !mayBreak) break;
    if (code[i] == '\\') ++i;
  }
  return Fault(at, Quote(), true);
}

/// A string in which two quotes stand for one.
bool Scan::SkipDoubledQuote() {
  for (std::size_t i = at + 1; i < code.size(); ++i) {
    if (code[i] != '"') continue;
    if (i + 1 < code.size() && code[i + 1] == '"') {
      ++i;
      continue;
    }
    at = i + 1;
    return true;
  }
  return Fault(at, Quote(), true);
}

bool Scan::Close(char bracket) {
  const char opening = kOpening[kClosing.find(bracket)];
  if (brackets.empty() || code[brackets.back()] != opening) {
    return Fault(at, Bracket(bracket), false);
  }
  brackets.pop_back();
  return true;
}

bool Scan::Fault(std::size_t position, std::string what, bool isOpen) {
  const auto breaks = std::ranges::count(code.substr(0, position), '\n');
  fault = TextFault{std::move(what), isOpen, static_cast<int>(breaks)};
  return false;
}

}  // namespace

std::optional<TextFault> TextBalance::Check(std::string_view code) { return Scan(code).Run(); }

}  // namespace morvane
