// What the texts of the chart work on.
#pragma once

#include <cstdio>

namespace net {

/// What a segment tells the other side.
enum Flags { FIN = 1, SYN = 2, ACK = 16 };

constexpr Flags operator|(Flags a, Flags b) { return static_cast<Flags>(int{a} | int{b}); }

/// The longest life of a segment, in milliseconds.
constexpr int msl = 30000;

/// Bytes on their way in and out.
struct Buffers {
  void Clear() { std::puts("buffers cleared"); }
};

/// Calls that nobody has taken yet.
struct Queue {
  void Open() { std::puts("queue opened"); }
};

}  // namespace net
