#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

class CDC;

/// Valid UTF-8 as UTF-16.
std::u16string ToUtf16(std::string_view utf8);
/// How far each UTF-16 unit of a line moves the next one in the font of the context, logical units;
/// the second unit of a pair moves it by nothing.
std::vector<std::int32_t> Advances(std::string_view utf8, const CDC& dc);

}  // namespace morvane
