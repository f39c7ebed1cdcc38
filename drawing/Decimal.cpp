#include "drawing/Decimal.h"

#include <array>
#include <charconv>
#include <limits>

namespace morvane {

std::string Decimal(double v, int digits) {
  constexpr int room = std::numeric_limits<double>::max_exponent10 + 20;
  std::array<char, room> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), v, std::chars_format::fixed, digits);
  return {text.data(), result.ptr};
}

}  // namespace morvane
