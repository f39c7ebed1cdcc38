#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace morvane {

// What every fuzz target has. One source is one target: it is linked with the fuzzer, which makes
// up inputs, or with Replay.cpp, which runs those that are kept.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the process with a word on what is wrong, so that the input is kept as one that crashes.
/// Does nothing when `fault` is empty.
void Require(const std::string& fault);
inline void Require(bool holds, const char* what) {
  if (!holds) Require(what);
}

}  // namespace morvane
