#include "drawing/TextRun.h"

#include "drawing/TextCodec.h"

namespace morvane {

namespace {

constexpr std::string_view kMark = "\u200F";

std::string_view MarkBeside(const TextRun& run, std::size_t at) {
  const bool isHeld = run.direction == TextDirection::LeftToRight || run.text.empty() ||
                      RunsRightToLeft(DecodeUtf8(run.text, at).value);
  return isHeld ? std::string_view() : kMark;
}

}  // namespace

std::string_view TextRun::MarkBefore() const { return MarkBeside(*this, 0); }

std::string_view TextRun::MarkBehind() const {
  return text.empty() ? text : MarkBeside(*this, Utf8Prefix(text, text.size() - 1).size());
}

}  // namespace morvane
