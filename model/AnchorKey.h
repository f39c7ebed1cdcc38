#pragma once

#include <cstdint>

namespace morvane {

/// The sides of a shape, as an anchor's key names them.
enum Side : std::uint16_t { SIDE_TOP = 1, SIDE_RIGHT = 2, SIDE_BOTTOM = 3, SIDE_LEFT = 4 };

/// Names an anchor of a shape: its side, and its running number on that side from 1. Keys order by
/// side first. A key that was never set holds 0xFFFF in both halves.
struct AnchorKey {
  static constexpr std::uint16_t kUnset = 0xFFFF;

  std::uint16_t index = kUnset;
  std::uint16_t side = kUnset;

  friend bool operator==(const AnchorKey&, const AnchorKey&) = default;
};

}  // namespace morvane
