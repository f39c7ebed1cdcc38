#pragma once

#include <string>

namespace morvane {

/// Any name for a file that is to take the place of another one in its folder. It is short, so that
/// it fits wherever the name of the other does, and its file may be there already.
std::string NameBeside();

}  // namespace morvane
