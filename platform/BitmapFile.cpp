#include "drawing/BitmapFile.h"

#include <array>
#include <cstdlib>
#include <span>

namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::uint32_t kCoreHeaderSize = 12;
constexpr std::uint32_t kType = 0x4D42;  // "BM"
constexpr std::int64_t kMaxBytes = std::int64_t{16} << 20;
constexpr std::uint32_t kColorBytes = 4;
constexpr std::uint16_t kTrueColorBits = 24;
constexpr std::uint16_t kMaxTableBits = 16;
constexpr std::uint32_t kPaletteColors = 256;

// Places in the file header and in the info header
constexpr std::size_t kPixelOffsetAt = 10;
constexpr std::size_t kWidthAt = 4;
constexpr std::size_t kHeightAt = 8;
constexpr std::size_t kBitCountAt = 14;
constexpr std::size_t kCompressionAt = 16;
constexpr std::size_t kImageSizeAt = 20;
constexpr std::size_t kColorsUsedAt = 32;

std::uint16_t Word(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

std::uint32_t DoubleWord(std::span<const std::uint8_t> bytes, std::size_t at) {
  return Word(bytes, at) | static_cast<std::uint32_t>(Word(bytes, at + 2)) << 16;
}

bool ReadBytes(std::istream& file, std::span<std::uint8_t> bytes) {
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return static_cast<std::size_t>(file.gcount()) == bytes.size();
}

/// Reads a block of a size that comes from the file; false beyond what is taken or there.
bool ReadBlock(std::istream& file, std::int64_t size, std::vector<std::uint8_t>& block) {
  if (size < 0 || size > kMaxBytes) return false;
  block.resize(static_cast<std::size_t>(size));
  return ReadBytes(file, block);
}

/// The colours of a table whose count the file leaves open; a negative number for one that no
/// memory holds.
std::int64_t ColorsOf(std::uint16_t bitCount) {
  if (bitCount == kTrueColorBits) return 0;
  return bitCount <= kMaxTableBits ? std::int64_t{1} << bitCount : -1;
}

/// The bytes of a row of pixels, which is filled up to whole 32-bit words.
std::int64_t RowBytes(std::uint16_t bitCount, std::int32_t width) {
  return (std::int64_t{bitCount} * width + 31) / 8 & ~std::int64_t{3};
}

/// The bytes of all rows; a negative number where they can't be counted.
std::int64_t ImageBytes(std::uint16_t bitCount, std::int32_t width, std::int32_t height) {
  const std::int64_t row = RowBytes(bitCount, width);
  return row < 0 || row > kMaxBytes ? -1 : row * height;
}

}  // namespace

std::optional<BitmapFile> ReadBitmapFile(std::istream& file) {
  std::array<std::uint8_t, kFileHeaderSize> head{};
  if (!ReadBytes(file, head) || Word(head, 0) != kType) return std::nullopt;
  std::array<std::uint8_t, kInfoHeaderSize> info{};
  if (!ReadBytes(file, info) || DoubleWord(info, 0) == kCoreHeaderSize) return std::nullopt;

  BitmapFile bitmap;
  bitmap.width = static_cast<std::int32_t>(DoubleWord(info, kWidthAt));
  const auto height = static_cast<std::int32_t>(DoubleWord(info, kHeightAt));
  bitmap.topDown = height < 0;
  bitmap.height = bitmap.topDown ? SubSat(0, height) : height;
  if (bitmap.width <= 0 || bitmap.height == 0) return std::nullopt;
  // Whoever draws it makes a picture of that size, with four bytes for a pixel.
  if (std::int64_t{bitmap.width} * bitmap.height > kMaxBytes / kColorBytes) return std::nullopt;
  bitmap.isPlain = DoubleWord(info, kCompressionAt) == 0;
  bitmap.bitCount = Word(info, kBitCountAt);

  std::int64_t colors = DoubleWord(info, kColorsUsedAt);
  if (colors == 0) colors = ColorsOf(bitmap.bitCount);
  std::int64_t size = DoubleWord(info, kImageSizeAt);
  if (size == 0) size = ImageBytes(bitmap.bitCount, bitmap.width, height);

  if (!ReadBlock(file, colors * kColorBytes, bitmap.colors)) return std::nullopt;
  bitmap.colorsUsed = static_cast<std::uint32_t>(colors);
  if (const std::uint32_t offset = DoubleWord(head, kPixelOffsetAt); offset != 0) {
    file.seekg(offset);
  }
  if (!ReadBlock(file, size, bitmap.pixels)) return std::nullopt;
  return bitmap;
}

std::uint32_t BitmapFile::ColorCount() const {
  return colorsUsed != 0 ? colorsUsed : kPaletteColors;
}

COLORREF BitmapFile::Color(std::uint32_t index) const {
  const std::size_t at = std::size_t{index} * kColorBytes;
  if (at + kColorBytes > colors.size()) return 0;
  return colors[at + 2] | COLORREF{colors[at + 1]} << 8 | COLORREF{colors[at]} << 16;
}

COLORREF BitmapFile::Pixel(std::int32_t x, std::int32_t y) const {
  const bool hasTable = bitCount == 1 || bitCount == 4 || bitCount == 8;
  if (!isPlain || !hasTable || x < 0 || y < 0 || x >= width || y >= height) return 0;
  const std::int64_t row = topDown ? y : height - 1 - y;
  const std::int64_t bit = std::int64_t{x} * bitCount;
  const std::int64_t at = row * RowBytes(bitCount, width) + bit / 8;
  if (at >= static_cast<std::int64_t>(pixels.size())) return 0;
  // The first pixel of a byte is in its high bits.
  const std::int64_t shift = 8 - bitCount - bit % 8;
  const std::uint32_t mask = (1U << bitCount) - 1;
  return Color(pixels[static_cast<std::size_t>(at)] >> shift & mask);
}
