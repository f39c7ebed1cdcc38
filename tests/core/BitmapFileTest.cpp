#include <fstream>

#include "drawing/BitmapFile.h"
#include "tests/support/ChartTest.h"

namespace {

/// The places of the fields in a file.
constexpr std::size_t kType = 0;
constexpr std::size_t kOffset = 10;
constexpr std::size_t kHeaderSize = 14;
constexpr std::size_t kWidth = 18;
constexpr std::size_t kHeight = 22;
constexpr std::size_t kBits = 28;
constexpr std::size_t kImageSize = 34;
constexpr std::size_t kColors = 46;
constexpr std::size_t kFileHead = 54;

struct Field {
  std::size_t at;
  std::uint32_t value;
};

/// Three by two pixels of 4 bits with two colours, a dark one and, at the top left and at the
/// bottom right, red; with other values in some fields.
std::optional<BitmapFile> Read(const std::vector<Field>& changes = {}, std::size_t size = 70) {
  std::string bytes(kFileHead, '\0');
  bytes += std::string("\x01\x02\x03\x00\x00\x00\xFF\x00", 8);
  bytes += std::string("\x00\x10\x00\x00\x10\x00\x00\x00", 8);
  std::vector<Field> fields{{kType, 0x4D42},   {kOffset, kFileHead + 8},
                            {kHeaderSize, 40}, {kWidth, 3},
                            {kHeight, 2},      {kBits, 4},
                            {kColors, 2}};
  fields.insert(fields.end(), changes.begin(), changes.end());
  for (const auto& [at, value] : fields) {
    const std::size_t count = at == kType || at == kBits ? 2 : 4;
    for (std::size_t i = 0; i < count; ++i) bytes[at + i] = static_cast<char>(value >> 8 * i);
  }
  std::istringstream in(bytes.substr(0, size));
  return ReadBitmapFile(in);
}

TEST(BitmapFile, ReadsRowsFromTheBottomUp) {
  const COLORREF dark = RGB(3, 2, 1);
  const COLORREF red = RGB(255, 0, 0);
  const auto bitmap = Read();
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->ColorCount(), 2U);
  const std::tuple<POINT, COLORREF> pixels[] = {{{0, 0}, red}, {{1, 0}, dark}, {{0, 1}, dark},
                                                {{2, 1}, red}, {{-1, 0}, 0},   {{0, -1}, 0},
                                                {{3, 0}, 0},   {{0, 2}, 0}};
  for (const auto& [p, colour] : pixels) EXPECT_EQ(bitmap->Pixel(p.x, p.y), colour) << p.x;

  const auto downwards = Read({{kHeight, 0xFFFFFFFE}, {kImageSize, 8}});
  ASSERT_TRUE(downwards);
  EXPECT_EQ(downwards->Pixel(1, 0), dark);
  EXPECT_EQ(downwards->Pixel(0, 1), red);
  const auto twoColours = Read({{kBits, 1}, {kColors, 0}});
  ASSERT_TRUE(twoColours);
  EXPECT_EQ(twoColours->ColorCount(), 2U);
  EXPECT_EQ(twoColours->Pixel(0, 1), dark);
}

TEST(BitmapFile, ReadsTheSplashPicture) {
  std::ifstream in(MORVANE_SOURCE_DIR "/resources/splash/splash.bmp", std::ios::binary);
  const auto bitmap = ReadBitmapFile(in);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->Width(), 387);
  EXPECT_EQ(bitmap->Height(), 242);
  // The frame around it is dark, and the place of the version text is light.
  EXPECT_LT(GetGValue(bitmap->Pixel(0, 0)), 150U);
  for (std::int32_t x = 270; x < 360; ++x) {
    for (std::int32_t y = 150; y < 165; ++y) ASSERT_GT(GetGValue(bitmap->Pixel(x, y)), 200U);
  }
}

TEST(BitmapFile, IsReadOrRefused) {
  for (const std::size_t size : {0, 13, 53, 60, 69}) EXPECT_FALSE(Read({}, size)) << size;
  const std::vector<Field> refused[] = {{{kType, 0x4D43}},
                                        {{kHeaderSize, 12}},
                                        {{kOffset, 0xFFFFFFFF}},
                                        {{kColors, 0xFFFFFFFF}},
                                        {{kColors, 0}},
                                        {{kWidth, 0x7FFFFFFF}},
                                        {{kWidth, 0x80000000}, {kImageSize, 8}},
                                        {{kHeight, 0}},
                                        {{kHeight, 0xFFFFFFFE}},
                                        {{kBits, 0xFFFF}},
                                        {{kImageSize, 0x80000000}}};
  for (const auto& fields : refused) {
    EXPECT_FALSE(Read(fields)) << fields[0].at << ": " << fields[0].value;
  }
  for (const Field field : {Field{kHeaderSize, 108}, {kOffset, 0}, {kImageSize, 1}}) {
    EXPECT_TRUE(Read({field})) << field.at;
  }
}

}  // namespace
