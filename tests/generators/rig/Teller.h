#pragma once

#include <string>
#include <vector>

namespace morvane {

struct Machine;

/// What the machine of a made-up chart does on events, without code: its trace.
std::string Interpreted(const Machine& machine, const std::vector<int>& events);

}  // namespace morvane
