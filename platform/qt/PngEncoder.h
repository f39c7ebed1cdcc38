#pragma once

#include <cstdint>
#include <deque>
#include <future>
#include <span>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// Encodes a picture as a PNG while the rest of it is still being painted. The rows come in bands,
/// each of which is compressed on a thread of its own; the pieces are then one stream. The same
/// bands give the same bytes.
class PngEncoder {
 public:
  struct Form {
    SIZE size;                  ///< pixels
    bool transparent = false;   ///< the pixels are premultiplied with their opacity
    double pixelsPerInch = 96;  ///< what programs show or print it at
  };
  /// Whole rows, 0xAARRGGBB.
  using Pixels = std::vector<std::uint32_t>;

  explicit PngEncoder(const Form& form);

  /// Takes the next `rows` rows, which come after the first `above` ones of `pixels`. Waits if
  /// enough of them are still being compressed. Gives a former band, or nothing, whose memory can
  /// serve for the next one.
  Pixels Add(Pixels pixels, int above, int rows);
  /// The file, after all rows were added.
  std::string Finish();

 private:
  /// A band, compressed.
  struct Piece {
    std::string deflated;
    std::uint32_t checksum = 1;  ///< Adler-32 of what was compressed
    std::size_t length = 0;      ///< how much that was
    Pixels pixels;
  };

  static Piece Compress(const Form& form, std::span<const std::uint32_t> rows);
  Pixels TakeOldest();

  Form form;
  std::deque<std::future<Piece>> running;
  std::uint32_t checksum = 1;
  bool begun = false;
  std::string file;
};

}  // namespace morvane
