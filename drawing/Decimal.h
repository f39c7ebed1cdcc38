#pragma once

#include <string>

namespace morvane {

/// A number with so many digits behind the decimal point, which is a point in every language: the
/// toolkit takes the user's own for what the C library prints.
std::string Decimal(double v, int digits);

}  // namespace morvane
