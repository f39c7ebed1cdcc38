#pragma once

#include <cstdint>

namespace morvane {

/// A line of a trace: something that a machine has done.
struct TraceLine {
  enum class Kind : std::uint8_t {
    Event,   ///< an event is handled
    Exit,    ///< a state is left
    Take,    ///< a transition is taken
    Enter,   ///< a state is entered
    Ignored  ///< no transition was there for the event
  };

  Kind kind = Kind::Event;
  int of = 0;  ///< the event, the state or the transition, as the machine counts them

  friend bool operator==(const TraceLine&, const TraceLine&) = default;
};

}  // namespace morvane
