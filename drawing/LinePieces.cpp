#include "drawing/LinePieces.h"

#include <algorithm>
#include <cstdint>

#include "drawing/TextBreaks.h"
#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr std::string_view kBlanks = " \t";
/// Behind the letters and marks of the Latin script.
constexpr std::uint32_t kFirstForeign = 0x370;
/// The first byte of such letters, and of a few marks.
constexpr unsigned char kForeignLead = 0xCD;
/// So much of a word without blanks is looked through at once, bytes.
constexpr std::size_t kAtOnce = 4096;
/// What follows may still move breaks that are so near the end of that.
constexpr std::size_t kUncertain = 128;

bool HasForeign(std::string_view word) {
  return std::ranges::any_of(word,
                             [](char c) { return static_cast<unsigned char>(c) >= kForeignLead; });
}

/// A break counts where at least one side of it isn't Latin.
bool IsForeignBreak(std::string_view utf8, std::size_t at) {
  if (DecodeUtf8(utf8, at).value >= kFirstForeign) return true;
  return DecodeUtf8(utf8, Utf8Prefix(utf8, at - 1).size()).value >= kFirstForeign;
}

}  // namespace

bool LinePieces::Next() {
  begin = end;
  if (begin >= wordEnd) {
    begin = std::min(utf8.find_first_not_of(kBlanks, end), utf8.size());
    if (begin == utf8.size()) return false;
    wordEnd = std::min(utf8.find_first_of(kBlanks, begin), utf8.size());
    isForeign = HasForeign(utf8.substr(begin, wordEnd - begin));
    breaks.clear();
    nextBreak = 0;
  }
  if (!isForeign) {
    end = wordEnd;
    return true;
  }
  if (nextBreak == breaks.size()) FindBreaks();
  end = breaks[nextBreak++];
  return true;
}

/// At least the next break, which can be the end of the word.
void LinePieces::FindBreaks() {
  breaks.clear();
  nextBreak = 0;
  const std::string_view rest = utf8.substr(begin, wordEnd - begin);
  for (std::size_t size = kAtOnce;; size *= 2) {
    const std::string_view part = Utf8Prefix(rest, size);
    const bool isAll = part.size() == rest.size();
    const std::size_t certain = isAll ? part.size() : part.size() - kUncertain;
    for (const std::size_t place : TextBreaks::Current().LineBreaks(part)) {
      if (place < certain && IsForeignBreak(part, place)) breaks.push_back(begin + place);
    }
    if (isAll) breaks.push_back(wordEnd);
    if (!breaks.empty()) return;
  }
}

}  // namespace morvane
