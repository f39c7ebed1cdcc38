#include "platform/qt/BoxText.h"

#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"

namespace morvane {

namespace {

/// What is left of a line that is too long.
constexpr std::size_t kShownBytes = 1000;
constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

}  // namespace

BoxText::BoxText(std::string_view bytes) {
  const std::string text = ToUtf8(bytes);
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    if (line.size() <= kMaxLineBytes) {
      utf8 += line;
    } else {
      utf8.append(LetterPrefix(line, kShownBytes)).append(kEllipsis);
      whole = false;
    }
    if (end == std::string_view::npos) break;
    utf8 += rest[end];
    rest.remove_prefix(end + 1);
  }
}

}  // namespace morvane
