#include "model/RecordLine.h"

#include <string_view>

namespace morvane {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

/// Cuts the next word off the front of `rest`.
std::string NextWord(std::string_view& rest) {
  const std::size_t start = std::min(rest.find_first_not_of(kWhiteSpace), rest.size());
  rest.remove_prefix(start);
  const std::size_t end = std::min(rest.find_first_of(kWhiteSpace), rest.size());
  std::string word(rest.substr(0, end));
  rest.remove_prefix(end);
  return word;
}

}  // namespace

RecordLine RecordLine::Parse(const std::string& line) {
  std::string_view rest = line;
  RecordLine words;
  words.first = NextWord(rest);
  words.second = NextWord(rest);
  return words;
}

}  // namespace morvane
