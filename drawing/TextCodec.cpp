#include "drawing/TextCodec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace morvane {

namespace {

/// Windows-1252 from 0x80 to 0x9F; the five bytes that it leaves open stand for themselves.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsContinuation(std::string_view bytes, std::size_t at) {
  return at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xC0) == 0x80;
}

/// Where the ASCII letters from a place on end. Most texts are nothing else, and whole charts are
/// looked through after each change, so that it takes eight at a time.
std::size_t AsciiEnd(std::string_view bytes, std::size_t at) {
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::uint64_t eight = 0;
  for (; bytes.size() - at >= sizeof eight; at += sizeof eight) {
    std::memcpy(&eight, bytes.data() + at, sizeof eight);
    if ((eight & highBits) != 0) break;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
  return at;
}

/// The text of Windows-1252 as UTF-8.
std::string FromWindows1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = byte >= 0x80 && byte < 0xA0;
    AppendUtf8(out, special ? kWindows1252[byte - 0x80U] : byte);
  }
  return out;
}

}  // namespace

CodePoint DecodeUtf8(std::string_view bytes, std::size_t at) {
  const auto lead = static_cast<unsigned char>(bytes[at]);
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xC2 || lead > 0xF4) return {};
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  std::uint32_t value = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(bytes, at + i)) return {};
    value = value << 6 | (static_cast<unsigned char>(bytes[at + i]) & 0x3FU);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  const bool surrogate = value >= 0xD800 && value < 0xE000;
  return overlong || surrogate || value > 0x10FFFF ? CodePoint{} : CodePoint{value, length};
}

bool IsValidUtf8(std::string_view bytes) {
  for (std::size_t at = AsciiEnd(bytes, 0); at < bytes.size(); at = AsciiEnd(bytes, at)) {
    const std::size_t length = DecodeUtf8(bytes, at).length;
    if (length == 0) return false;
    at += length;
  }
  return true;
}

void AppendUtf8(std::string& out, std::uint32_t codePoint) {
  const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0 | codePoint >> 6);
    put(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    put(0xE0 | codePoint >> 12);
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xF0 | codePoint >> 18);
    put(0x80 | (codePoint >> 12 & 0x3F));
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
}

std::string ToUtf8(std::string_view bytes) {
  return IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string ToUtf8(std::string_view bytes, std::size_t limit) {
  if (IsValidUtf8(bytes)) return std::string(Utf8Prefix(bytes, limit));
  return FromWindows1252(bytes.substr(0, limit));
}

std::optional<std::string> ToWindows1252(std::string_view utf8) {
  std::string bytes;
  for (std::size_t at = 0; at < utf8.size();) {
    const CodePoint letter = DecodeUtf8(utf8, at);
    const auto* special = std::ranges::find(kWindows1252, letter.value);
    if (special != kWindows1252.end()) {
      bytes.push_back(static_cast<char>(0x80 + (special - kWindows1252.begin())));
    } else if (letter.length > 0 && letter.value < 0x100) {
      bytes.push_back(static_cast<char>(letter.value));
    } else {
      return std::nullopt;
    }
    at += letter.length;
  }
  if (ToUtf8(bytes) != utf8) return std::nullopt;
  return bytes;
}

std::string EncodedLike(std::string_view former, std::string utf8) {
  if (IsValidUtf8(former)) return utf8;
  std::optional<std::string> bytes = ToWindows1252(utf8);
  return bytes ? std::move(*bytes) : std::move(utf8);
}

std::string_view Utf8Prefix(std::string_view utf8, std::size_t limit) {
  if (utf8.size() <= limit) return utf8;
  std::size_t end = limit;
  while (end > 0 && IsContinuation(utf8, end)) --end;
  return utf8.substr(0, end);
}

}  // namespace morvane
