#pragma once

#include <cstdint>
#include <string_view>

namespace morvane {

/// The id of the object whose record holds a line, counted from 1, of a model text with LF between
/// its lines; 0 if none does.
std::int32_t RecordAt(std::string_view modelText, int line);

}  // namespace morvane
