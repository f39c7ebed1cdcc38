#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <vector>

#include "drawing/Geometry.h"

/// A picture with a colour table as a bitmap file holds it: uncompressed, its rows from the bottom
/// up unless the height in the file is negative.
class BitmapFile {
 public:
  /// In pixels.
  std::int32_t Width() const { return width; }
  std::int32_t Height() const { return height; }
  /// The colours of the table as it counts for a palette: where the file gives none, 256.
  std::uint32_t ColorCount() const;
  /// Colour `index` of the table; black beyond what the file holds.
  COLORREF Color(std::uint32_t index) const;
  /// The colour at a pixel, counted from the top left corner; black outside of the picture, and
  /// everywhere in a picture that is no plain one of 1, 4 or 8 bits per pixel.
  COLORREF Pixel(std::int32_t x, std::int32_t y) const;

 private:
  friend std::optional<BitmapFile> ReadBitmapFile(std::istream& file);

  std::int32_t width = 0;
  std::int32_t height = 0;
  bool topDown = false;
  bool isPlain = false;  ///< not compressed
  std::uint16_t bitCount = 0;
  std::uint32_t colorsUsed = 0;
  std::vector<std::uint8_t> colors;  ///< blue, green, red and a spare byte for each
  std::vector<std::uint8_t> pixels;  ///< rows of whole 32-bit words
};

/// Reads a bitmap file from the start of the stream; nothing if it is none, ends too early, or
/// holds more than a picture of this program needs.
std::optional<BitmapFile> ReadBitmapFile(std::istream& file);
