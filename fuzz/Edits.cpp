#include "fuzz/FuzzTarget.h"
#include "fuzz/Walk.h"

namespace morvane {

// A walk over a chart, each choice from the input: every step of it can be undone and done again.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  Require(Walk::Go(source).fault);
  return 0;
}

}  // namespace morvane
