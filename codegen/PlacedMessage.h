#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvane {

/// A message of a tool about a place of a model file, as in
/// "lift.mrv:47: error: GenericState 105 "Listen" overlaps ...".
struct PlacedMessage {
  int line = 0;         ///< of the model file, counted from 1
  std::string kind;     ///< the keyword of the object that the message names; empty if none
  std::int32_t id = 0;  ///< of that object; 0 if none

  /// Nothing for a line that is no such message.
  static std::optional<PlacedMessage> Parse(std::string_view text);
};

}  // namespace morvane
