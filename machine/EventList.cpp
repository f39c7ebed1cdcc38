#include "machine/EventList.h"

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr std::string_view kUntouched = "-Edit-";

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t start = text.find_first_not_of(blanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

}  // namespace

EventList EventList::Parse(std::string_view written) {
  EventList list;
  const std::string text = ToUtf8(Trimmed(written));
  list.isUntouched = text == kUntouched;
  if (text.empty() || list.isUntouched) return list;
  std::string_view rest = text;
  for (std::size_t comma = rest.find(','); comma != std::string_view::npos;
       comma = rest.find(',')) {
    list.names.emplace_back(Trimmed(rest.substr(0, comma)));
    rest.remove_prefix(comma + 1);
  }
  list.names.emplace_back(Trimmed(rest));
  return list;
}

}  // namespace morvane
