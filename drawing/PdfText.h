#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// Four digits.
void AppendHex(std::string& to, std::uint16_t unit);
/// Valid UTF-8 as a text of a PDF file: its UTF-16 units in hexadecimal digits, in brackets.
std::string PdfText(std::string_view utf8);

}  // namespace morvane
