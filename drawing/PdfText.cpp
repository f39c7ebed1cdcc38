#include "drawing/PdfText.h"

#include "drawing/Utf16.h"

namespace morvane {

void AppendHex(std::string& to, std::uint16_t unit) {
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr int bitsOfDigit = 4;
  for (int shift = 3 * bitsOfDigit; shift >= 0; shift -= bitsOfDigit) {
    to += digits[(unit >> shift) & 0xF];
  }
}

std::string PdfText(std::string_view utf8) {
  constexpr std::uint16_t byteOrderMark = 0xFEFF;
  std::string text = "<";
  AppendHex(text, byteOrderMark);
  for (const char16_t unit : ToUtf16(utf8)) AppendHex(text, unit);
  return text += '>';
}

}  // namespace morvane
