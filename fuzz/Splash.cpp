#include <sstream>

#include "drawing/BitmapFile.h"
#include "fuzz/FuzzTarget.h"

// The file of the splash picture: every pixel and every colour of what is read can be looked at.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream file(TextOf(data, size));
  const std::optional<BitmapFile> picture = ReadBitmapFile(file);
  if (!picture) return 0;
  COLORREF seen = 0;
  for (std::int32_t y = 0; y < picture->Height(); ++y) {
    for (std::int32_t x = 0; x < picture->Width(); ++x) seen |= picture->Pixel(x, y);
  }
  for (std::uint32_t index = 0; index < std::min(picture->ColorCount(), 0x10000U); ++index) {
    seen |= picture->Color(index);
  }
  constexpr COLORREF colourBits = 0xFFFFFF;
  Require((seen & ~colourBits) == 0, "a colour has more than three bytes");
  return 0;
}
