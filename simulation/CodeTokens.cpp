#include "simulation/CodeTokens.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

using Kind = CodeToken::Kind;

/// The longest first.
constexpr std::array<std::string_view, 26> kMarks{
    "<<=", ">>=", "===", "!==", "...", "::", "->", "++", "--", "+=", "-=", "*=", "/=",
    "%=",  "&=",  "|=",  "^=",  "==",  "!=", "<=", ">=", "&&", "||", "<<", ">>", "=>"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsWordPart(char c) {
  const bool isAscii =
      IsDigit(c) || c == '_' || c == '$' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  return isAscii || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f'; }

template <class Predicate>
std::size_t EndOf(std::string_view code, std::size_t at, Predicate holds) {
  while (at < code.size() && holds(code[at])) ++at;
  return at;
}

std::size_t EndOfQuote(std::string_view code, std::size_t at) {
  const char quote = code[at++];
  while (at < code.size() && code[at] != quote) at += code[at] == '\\' ? 2 : 1;
  return std::min(at + 1, code.size());
}

CodeToken Next(std::string_view code, std::size_t at) {
  const auto until = [&](Kind kind, std::size_t end) {
    return CodeToken{kind, code.substr(at, std::min(end, code.size()) - at)};
  };
  const std::string_view rest = code.substr(at);
  if (IsBlank(rest[0])) return until(Kind::Gap, EndOf(code, at, IsBlank));
  if (rest.starts_with("//")) return until(Kind::Gap, code.find('\n', at));
  if (rest.starts_with("/*")) {
    const std::size_t end = code.find("*/", at + 2);
    return until(Kind::Gap, end == std::string_view::npos ? end : end + 2);
  }
  if (IsDigit(rest[0])) {
    return until(Kind::Number, EndOf(code, at, [](char c) { return IsWordPart(c) || c == '.'; }));
  }
  if (IsWordPart(rest[0])) return until(Kind::Word, EndOf(code, at, IsWordPart));
  if (rest[0] == '"' || rest[0] == '\'' || rest[0] == '`') {
    return until(Kind::Quote, EndOfQuote(code, at));
  }
  const auto* mark =
      std::ranges::find_if(kMarks, [&](std::string_view known) { return rest.starts_with(known); });
  return until(Kind::Mark, at + (mark != kMarks.end() ? mark->size() : 1));
}

}  // namespace

std::vector<CodeToken> CodeTokens(std::string_view code) {
  std::vector<CodeToken> tokens;
  for (std::size_t at = 0; at < code.size(); at += tokens.back().text.size()) {
    tokens.push_back(Next(code, at));
  }
  return tokens;
}

}  // namespace morvane
