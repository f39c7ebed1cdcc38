#pragma once

#include <string>

namespace morvane {

/// A model text with so many states, ten in each composite, and twice as many transitions.
std::string MachineChart(int states);

}  // namespace morvane
