#pragma once

#include <string>

namespace morvane {

/// An event that a machine knows.
struct MachineEvent {
  std::string written;  ///< as the chart shows it
  std::string name;     ///< an identifier, unique among the events; it may be a word of a language
};

}  // namespace morvane
