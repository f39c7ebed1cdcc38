#include "codegen/PlacedMessage.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "model/RecordLine.h"

namespace morvane {

namespace {

constexpr std::string_view kBegin = ": ";
constexpr std::array<std::string_view, 2> kSeverities = {": error: ", ": warning: "};

/// Where the text behind a severity begins that stands at a place; 0 if none does.
std::size_t AfterSeverity(std::string_view text, std::size_t at) {
  const auto* const found = std::ranges::find_if(kSeverities, [&](std::string_view severity) {
    return text.substr(at).starts_with(severity);
  });
  return found != kSeverities.end() ? at + found->size() : 0;
}

/// A number from 1 that is all of the text; 0 if it is none.
std::int32_t Number(std::string_view text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end ? std::max(number, 0) : 0;
}

/// The line of "PATH:LINE"; 0 if the text is none.
std::int32_t LineOf(std::string_view place) {
  const std::size_t colon = place.rfind(':');
  if (colon == std::string_view::npos || colon == 0) return 0;
  return Number(place.substr(colon + 1));
}

}  // namespace

std::optional<PlacedMessage> PlacedMessage::Parse(std::string_view text) {
  // The name of a folder may read like the middle of a message.
  for (std::size_t at = text.find(kBegin); at != std::string_view::npos;
       at = text.find(kBegin, at + 1)) {
    const std::size_t start = AfterSeverity(text, at);
    if (start == 0) continue;
    PlacedMessage message;
    message.line = LineOf(text.substr(0, at));
    if (message.line == 0) continue;
    const RecordLine words = RecordLine::Parse(std::string(text.substr(start)));
    message.id = Number(words.second);
    if (message.id != 0) message.kind = words.first;
    return message;
  }
  return std::nullopt;
}

}  // namespace morvane
