#include "platform/qt/PngEncoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <string_view>
#include <utility>
#include <zlib.h>

namespace morvane {

namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
/// The first two bytes of a stream with a window of 32 KB that was compressed fast.
constexpr std::string_view kStreamHead = "\x78\x5E";
/// An empty last block, by which a stream ends.
constexpr std::string_view kLastBlock{"\x03\x00", 2};

// The words of a header.
constexpr char kBitsToChannel = 8;
constexpr char kColour = 2;
constexpr char kColourWithOpacity = 6;
constexpr char kPerMetre = 1;
constexpr double kInchesPerMetre = 1 / 0.0254;
/// A row as it stands: one that is like the row above is found by the compression anyway.
constexpr char kNoFilter = 0;

/// Measured on charts: the next level takes twice the time for two thirds of the bytes, and the
/// lower ones save nothing.
constexpr int kLevel = 3;
constexpr int kRawStream = -15;
constexpr int kMemoryLevel = 8;
/// Bands that may wait or be compressed while the next one is painted.
constexpr std::size_t kMostRunning = 2;

void AppendNumber(std::string& to, std::uint32_t number) {
  for (const int shift : {24, 16, 8, 0}) to += static_cast<char>(number >> shift & 0xFF);
}

/// Appends a chunk: its length, its type, its bytes and their checksum.
void AppendChunk(std::string& to, std::string_view type, std::string_view bytes) {
  AppendNumber(to, static_cast<std::uint32_t>(bytes.size()));
  const std::size_t start = to.size();
  to.append(type).append(bytes);
  const std::string_view checked = std::string_view(to).substr(start);
  const auto sum = crc32_z(0, reinterpret_cast<const Bytef*>(checked.data()), checked.size());
  AppendNumber(to, static_cast<std::uint32_t>(sum));
}

std::string Header(const PngEncoder::Form& form) {
  std::string bytes;
  AppendNumber(bytes, static_cast<std::uint32_t>(form.size.cx));
  AppendNumber(bytes, static_cast<std::uint32_t>(form.size.cy));
  bytes += kBitsToChannel;
  bytes += form.transparent ? kColourWithOpacity : kColour;
  bytes.append(3, '\0');  // the only kinds of compression and filter, and no interlacing
  return bytes;
}

std::string Resolution(double pixelsPerInch) {
  const auto perMetre = static_cast<std::uint32_t>(std::lround(pixelsPerInch * kInchesPerMetre));
  std::string bytes;
  AppendNumber(bytes, perMetre);
  AppendNumber(bytes, perMetre);
  return bytes + kPerMetre;
}

char* WriteColour(char* to, std::uint32_t pixel) {
  *to++ = static_cast<char>(pixel >> 16);
  *to++ = static_cast<char>(pixel >> 8);
  *to++ = static_cast<char>(pixel);
  return to;
}

/// A colour as it is without its opacity.
char* WriteWithOpacity(char* to, std::uint32_t pixel) {
  const std::uint32_t opacity = pixel >> 24;
  const auto channel = [&](int shift) {
    const std::uint32_t value = pixel >> shift & 0xFF;
    const std::uint32_t most = 0xFF;
    return static_cast<char>(opacity == 0 ? 0
                                          : std::min(most, (value * most + opacity / 2) / opacity));
  };
  for (const int shift : {16, 8, 0}) *to++ = channel(shift);
  *to++ = static_cast<char>(opacity);
  return to;
}

/// Compresses one run of bytes that ends so that another one can follow.
class Deflater {
 public:
  Deflater() {
    if (deflateInit2(&stream, kLevel, Z_DEFLATED, kRawStream, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~Deflater() { deflateEnd(&stream); }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  void Add(std::string& bytes) { Run(bytes.data(), bytes.size(), Z_NO_FLUSH); }
  std::string Finish() {
    Run(nullptr, 0, Z_FULL_FLUSH);
    return std::move(result);
  }

 private:
  void Run(char* bytes, std::size_t length, int flush) {
    stream.next_in = reinterpret_cast<Bytef*>(bytes);
    stream.avail_in = static_cast<uInt>(length);
    do {
      stream.next_out = part.data();
      stream.avail_out = static_cast<uInt>(part.size());
      deflate(&stream, flush);
      result.append(reinterpret_cast<const char*>(part.data()), part.size() - stream.avail_out);
    } while (stream.avail_out == 0);
  }

  z_stream stream{};
  std::array<Bytef, 1 << 16> part{};
  std::string result;
};

}  // namespace

PngEncoder::PngEncoder(const Form& form) : form(form), file(kSignature) {
  AppendChunk(file, "IHDR", Header(form));
  AppendChunk(file, "pHYs", Resolution(form.pixelsPerInch));
}

PngEncoder::Piece PngEncoder::Compress(const Form& form, std::span<const std::uint32_t> rows) {
  const auto width = static_cast<std::size_t>(form.size.cx);
  // A row as the stream takes it, behind the mark of its filter.
  std::string row(1 + width * (form.transparent ? 4 : 3), kNoFilter);
  Piece piece;
  Deflater deflater;
  std::span<const std::uint32_t> former;
  for (; !rows.empty(); rows = rows.subspan(width)) {
    const auto pixels = rows.first(width);
    if (!std::ranges::equal(pixels, former)) {
      char* to = row.data() + 1;
      for (const std::uint32_t pixel : pixels) {
        to = form.transparent ? WriteWithOpacity(to, pixel) : WriteColour(to, pixel);
      }
      former = pixels;
    }
    piece.checksum = static_cast<std::uint32_t>(
        adler32_z(piece.checksum, reinterpret_cast<const Bytef*>(row.data()), row.size()));
    piece.length += row.size();
    deflater.Add(row);
  }
  piece.deflated = deflater.Finish();
  return piece;
}

PngEncoder::Pixels PngEncoder::Add(Pixels pixels, int above, int rows) {
  Pixels spare;
  if (running.size() == kMostRunning) spare = TakeOldest();
  const auto width = static_cast<std::size_t>(form.size.cx);
  running.push_back(std::async(
      std::launch::async,
      [form = form, pixels = std::move(pixels), first = width * static_cast<std::size_t>(above),
       count = width * static_cast<std::size_t>(rows)]() mutable {
        Piece piece = Compress(form, std::span(pixels).subspan(first, count));
        piece.pixels = std::move(pixels);
        return piece;
      }));
  return spare;
}

PngEncoder::Pixels PngEncoder::TakeOldest() {
  Piece piece = running.front().get();
  running.pop_front();
  if (!std::exchange(begun, true)) piece.deflated.insert(0, kStreamHead);
  checksum = static_cast<std::uint32_t>(
      adler32_combine(checksum, piece.checksum, static_cast<z_off_t>(piece.length)));
  AppendChunk(file, "IDAT", piece.deflated);
  return std::move(piece.pixels);
}

std::string PngEncoder::Finish() {
  while (!running.empty()) TakeOldest();
  std::string end(kLastBlock);
  AppendNumber(end, checksum);
  AppendChunk(file, "IDAT", end);
  AppendChunk(file, "IEND", {});
  return std::move(file);
}

}  // namespace morvane
