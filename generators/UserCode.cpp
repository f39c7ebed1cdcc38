#include "generators/UserCode.h"

#include "generators/NamePool.h"

namespace morvane {

namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

bool IsFileName(std::string_view text) {
  for (const char c : text) {
    if (!IsIdentifierPart(c) && c != '.' && c != '/' && c != '-' && c != '+') return false;
  }
  for (const std::string_view ending : {".h", ".hpp", ".hh", ".hxx", ".inc", ".inl", ".ipp"}) {
    if (text.size() > ending.size() && text.ends_with(ending)) return true;
  }
  return false;
}

std::string IncludeLine(std::string_view line) {
  const std::string_view text = Trimmed(line);
  const auto isBetween = [text](char first, char last) {
    return text.size() > 2 && text.front() == first && text.find(last, 1) == text.size() - 1;
  };
  if (isBetween('<', '>') || isBetween('"', '"')) return "#include " + std::string(text);
  if (IsFileName(text)) return "#include \"" + std::string(text) + '"';
  return std::string(line);
}

/// Where a comment or literal that begins at `at` ends; `at` itself if none begins there.
std::size_t SkipUnread(std::string_view code, std::size_t at) {
  const std::string_view rest = code.substr(at);
  const auto behind = [code, at](std::string_view end, std::size_t from) {
    const std::size_t found = code.find(end, at + from);
    return found == std::string_view::npos ? code.size() : found + end.size();
  };
  if (rest.starts_with("//")) return behind("\n", 2);
  if (rest.starts_with("/*")) return behind("*/", 2);
  if (rest.starts_with("\"\"\"")) return behind("\"\"\"", 3);
  if (rest.front() != '"' && rest.front() != '\'') return at;
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] == '\\') {
      ++i;
    } else if (rest[i] == rest.front() || rest[i] == '\n') {
      return at + i + 1;
    }
  }
  return code.size();
}

int DepthChange(char c) {
  if (c == '{' || c == '(') return 1;
  return c == '}' || c == ')' ? -1 : 0;
}

}  // namespace

std::string IncludeLines(std::string_view text) {
  std::string out;
  bool inComment = false;
  bool goesOn = false;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    out += inComment || goesOn ? std::string(line) : IncludeLine(line);
    if (end != std::string_view::npos) out += '\n';
    goesOn = line.ends_with('\\');
    const std::size_t open = inComment ? 0 : line.find("/*");
    if (open != std::string_view::npos) {
      inComment = line.find("*/", inComment ? 0 : open + 2) == std::string_view::npos;
    }
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  return out;
}

bool HasAbstractMember(std::string_view code) {
  int depth = 0;
  bool pending = false;  // the word was there, and what it belongs to isn't known yet
  for (std::size_t at = 0; at < code.size();) {
    const std::size_t behind = SkipUnread(code, at);
    if (behind > at) {
      at = behind;
      continue;
    }
    std::size_t end = at;
    while (end < code.size() && IsIdentifierPart(code[end])) ++end;
    const std::string_view word = code.substr(at, end - at);
    if (depth == 0 && word == "abstract") pending = true;
    if (word == "class" || word == "interface") pending = false;
    if (word.empty()) {
      if (pending && depth == 0 && (code[at] == '(' || code[at] == ';')) return true;
      depth += DepthChange(code[at]);
    }
    at = word.empty() ? at + 1 : end;
  }
  return pending;
}

bool KeepsItsColumns(std::string_view text) {
  if (text.find('\n') == std::string_view::npos) return false;
  for (const std::string_view sign : {"R\"", "@\"", "\"\"\"", "\\\n"}) {
    if (text.find(sign) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace morvane
