#include <cstdint>
#include <fstream>

#include "platform/BitmapFile.h"
#include "tests/support/ChartTest.h"

namespace {

/// The places of the fields in a file.
constexpr std::size_t kType = 0;
constexpr std::size_t kOffset = 10;
constexpr std::size_t kHeaderSize = 14;
constexpr std::size_t kWidth = 18;
constexpr std::size_t kHeight = 22;
constexpr std::size_t kBits = 28;
constexpr std::size_t kCompression = 30;
constexpr std::size_t kImageSize = 34;
constexpr std::size_t kColors = 46;
constexpr std::size_t kFileHead = 54;

void Put(std::string& bytes, std::size_t at, std::uint32_t value, int count = 4) {
  for (int i = 0; i < count; ++i)
    bytes[at + static_cast<std::size_t>(i)] = static_cast<char>(value >> 8 * i);
}

/// Three by two pixels of 4 bits with two colours: red is 1, and stands at the top left and at the
/// bottom right.
std::string SmallFile() {
  std::string bytes(kFileHead, '\0');
  Put(bytes, kType, 0x4D42, 2);
  Put(bytes, kOffset, kFileHead + 8);
  Put(bytes, kHeaderSize, 40);
  Put(bytes, kWidth, 3);
  Put(bytes, kHeight, 2);
  Put(bytes, kBits, 4, 2);
  Put(bytes, kColors, 2);
  bytes += std::string("\x01\x02\x03\x00\x00\x00\xFF\x00", 8);
  bytes += std::string("\x00\x10\x00\x00", 4);
  bytes += std::string("\x10\x00\x00\x00", 4);
  return bytes;
}

std::optional<BitmapFile> Read(const std::string& bytes) {
  std::istringstream in(bytes);
  return ReadBitmapFile(in);
}

TEST(BitmapFile, ReadsRowsFromTheBottomUp) {
  const auto bitmap = Read(SmallFile());
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->Width(), 3);
  EXPECT_EQ(bitmap->Height(), 2);
  EXPECT_EQ(bitmap->ColorCount(), 2U);
  const COLORREF other = RGB(3, 2, 1);
  const COLORREF red = RGB(255, 0, 0);
  EXPECT_EQ(bitmap->Pixel(0, 0), red);
  EXPECT_EQ(bitmap->Pixel(1, 0), other);
  EXPECT_EQ(bitmap->Pixel(0, 1), other);
  EXPECT_EQ(bitmap->Pixel(2, 1), red);
  for (const POINT p : {POINT{-1, 0}, POINT{0, -1}, POINT{3, 0}, POINT{0, 2}}) {
    EXPECT_EQ(bitmap->Pixel(p.x, p.y), 0U);
  }
}

TEST(BitmapFile, ReadsTheSplashPicture) {
  std::ifstream in(std::string(MORVANE_SOURCE_DIR) + "/resources/splash/splash.bmp",
                   std::ios::binary);
  const auto bitmap = ReadBitmapFile(in);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->Width(), 387);
  EXPECT_EQ(bitmap->Height(), 242);
  EXPECT_LE(bitmap->ColorCount(), 256U);
  // The frame around it is dark, and the place of the version text is light.
  EXPECT_LT(GetGValue(bitmap->Pixel(0, 0)), 150U);
  for (std::int32_t x = 270; x < 360; ++x) {
    for (std::int32_t y = 150; y < 165; ++y) ASSERT_GT(GetGValue(bitmap->Pixel(x, y)), 200U);
  }
}

struct FileCase {
  const char* name;
  std::function<void(std::string&)> change;
  bool isRead;
};

FileCase Field(const char* name, std::size_t at, std::uint32_t value, bool isRead, int count = 4) {
  return {name, [=](std::string& bytes) { Put(bytes, at, value, count); }, isRead};
}

FileCase Cut(const char* name, std::size_t size) {
  return {name, [=](std::string& bytes) { bytes.resize(size); }, false};
}

TEST(BitmapFile, IsReadOrRefused) {
  const FileCase cases[] = {Cut("Empty", 0),
                            Cut("HalfFileHeader", 13),
                            Cut("HalfInfoHeader", 53),
                            Cut("HalfColours", 60),
                            Cut("HalfPixels", 69),
                            Field("OtherType", kType, 0x4D43, false, 2),
                            Field("CoreHeader", kHeaderSize, 12, false),
                            Field("LongHeader", kHeaderSize, 108, true),
                            Field("PixelsFollow", kOffset, 0, true),
                            Field("PixelsFarAway", kOffset, 0xFFFFFFFF, false),
                            Field("TooManyColours", kColors, 0xFFFFFFFF, false),
                            Field("AllColoursOfItsDepth", kColors, 0, false),
                            Field("Huge", kWidth, 0x7FFFFFFF, false),
                            Field("NegativeWidth", kWidth, 0x80000000, false),
                            Field("NoHeight", kHeight, 0, false),
                            FileCase{"NegativeWidthOfKnownSize",
                                     [](std::string& bytes) {
                                       Put(bytes, kWidth, 0x80000000);
                                       Put(bytes, kImageSize, 8);
                                     },
                                     false},
                            Field("NegativeHeightOfUnknownSize", kHeight, 0xFFFFFFFE, false),
                            Field("LowestHeight", kHeight, 0x80000000, false),
                            Field("DeepPixels", kBits, 0xFFFF, false, 2),
                            Field("HugeImage", kImageSize, 0x80000000, false),
                            Field("ShortImage", kImageSize, 1, true),
                            Field("Compressed", kCompression, 1, true),
                            FileCase{"TopDown",
                                     [](std::string& bytes) {
                                       Put(bytes, kHeight, 0xFFFFFFFE);
                                       Put(bytes, kImageSize, 8);
                                     },
                                     true},
                            FileCase{"TrueColour",
                                     [](std::string& bytes) {
                                       Put(bytes, kBits, 24, 2);
                                       Put(bytes, kColors, 0);
                                       bytes.append(24, '\0');
                                     },
                                     true}};
  for (const FileCase& c : cases) {
    std::string bytes = SmallFile();
    c.change(bytes);
    const auto bitmap = Read(bytes);
    EXPECT_EQ(bitmap.has_value(), c.isRead) << c.name;
    if (!bitmap) continue;
    // Whatever was read can be looked at everywhere.
    static_cast<void>(bitmap->Color(0xFFFFFFFF));
    for (std::int32_t y = 0; y < std::min(bitmap->Height(), 4); ++y) {
      for (std::int32_t x = 0; x < std::min(bitmap->Width(), 4); ++x) bitmap->Pixel(x, y);
    }
  }
}

TEST(BitmapFile, WorksOutColoursAndSize) {
  std::string bytes = SmallFile();
  Put(bytes, kBits, 1, 2);
  Put(bytes, kColors, 0);
  const auto bitmap = Read(bytes);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->ColorCount(), 2U);
  std::string top = SmallFile();
  Put(top, kHeight, 0xFFFFFFFE);
  Put(top, kImageSize, 8);
  EXPECT_EQ(Read(top)->Pixel(1, 0), RGB(3, 2, 1));
  EXPECT_EQ(Read(top)->Pixel(0, 1), RGB(255, 0, 0));
}

}  // namespace
