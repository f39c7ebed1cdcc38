#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace morvane {

/// An input as a row of decisions. At its end every decision is 0.
class ByteSource {
 public:
  ByteSource(const std::uint8_t* data, std::size_t size) : next(data), end(data + size) {}

  bool IsEmpty() const { return next == end; }
  std::uint8_t Byte() { return IsEmpty() ? std::uint8_t{0} : *next++; }
  /// From 0 to below `limit`; 0 for a limit of 0.
  int Below(int limit) {
    constexpr int values = 0x100;
    if (limit <= 0) return 0;
    return (limit <= values ? Byte() : Word()) % limit;
  }
  bool Flag() { return (Byte() & 1U) != 0; }
  /// A text of up to 15 bytes.
  std::string Text() {
    constexpr int longest = 16;
    std::string text;
    for (int left = Byte() % longest; left > 0 && !IsEmpty(); --left) {
      text += static_cast<char>(Byte());
    }
    return text;
  }

 private:
  int Word() {
    const int high = Byte();
    return high << 8 | Byte();
  }

  const std::uint8_t* next;
  const std::uint8_t* end;
};

}  // namespace morvane
