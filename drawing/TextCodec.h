#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvane {

// Texts are bytes as the file holds them. For the screen, valid UTF-8 is UTF-8, and anything else
// is taken as Windows-1252.

/// A code point, and how many bytes it takes.
struct CodePoint {
  std::uint32_t value = 0;
  std::size_t length = 0;
};

/// The code point whose sequence begins at `at`, which lies within the text; no bytes if that is no
/// valid sequence.
CodePoint DecodeUtf8(std::string_view bytes, std::size_t at);
bool IsValidUtf8(std::string_view bytes);
void AppendUtf8(std::string& out, std::uint32_t codePoint);
/// The text as valid UTF-8.
std::string ToUtf8(std::string_view bytes);
/// The beginning of the text, of about `limit` bytes, as valid UTF-8. All of the text tells its
/// encoding.
std::string ToUtf8(std::string_view bytes, std::size_t limit);
/// A text of valid UTF-8 in Windows-1252; nothing if that lacks one of its letters, or if what
/// comes out would be read as UTF-8 of another text.
std::optional<std::string> ToWindows1252(std::string_view utf8);
/// A text of valid UTF-8 as bytes of the encoding of those that it comes in the place of, as long
/// as that can hold it and is read back; else as UTF-8.
std::string EncodedLike(std::string_view former, std::string utf8);
/// The longest prefix of at most `limit` bytes that doesn't end inside a UTF-8 sequence.
std::string_view Utf8Prefix(std::string_view utf8, std::size_t limit);

}  // namespace morvane
