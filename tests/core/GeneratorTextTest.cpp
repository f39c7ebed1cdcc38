#include <gtest/gtest.h>

#include "codegen/ScreenText.h"

namespace {

/// What the screen shows after some bytes came in pieces.
std::string Shown(std::string_view bytes, std::size_t pieceSize) {
  ScreenText text;
  std::string shown;
  for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
    shown.resize(shown.rfind('\n') + 1);
    shown += text.Add(bytes.substr(at, pieceSize));
  }
  return shown;
}

TEST(GeneratorTextTest, LinesComeOutAlikeWhereverTheBytesAreCut) {
  const struct {
    const char* bytes;
    const char* shown;
  } cases[] = {{"one\ntwo", "one\ntwo"},
               {"one\r\ntwo\r\n", "one\ntwo\n"},
               {"one\r\r\n\ntwo", "one\n\ntwo"},
               {"10%\r20%\r", "10%\n20%"},
               {"gr\xC3\xB6\xC3\x9F\x65r\ncaf\xE9\n\xC3\xA9",
                "gr\xC3\xB6\xC3\x9F\x65r\n"
                "caf\xC3\xA9\n\xC3\xA9"}};
  for (const auto& c : cases) {
    for (const std::size_t pieceSize : {1, 2, 3, 100}) {
      EXPECT_EQ(Shown(c.bytes, pieceSize), c.shown) << c.bytes << " in pieces of " << pieceSize;
    }
  }
}

TEST(GeneratorTextTest, ALongLineGoesOnInTheNext) {
  const std::string letters(ScreenText::kLongestLine - 1, 'x');
  for (const std::size_t pieceSize : {1000, 100000}) {
    EXPECT_EQ(Shown(letters + "\xC3\xB6y", pieceSize), letters + "\n\xC3\xB6y");
    EXPECT_EQ(Shown(letters + "z\n!", pieceSize), letters + "z\n!");
  }
  const std::string strays(ScreenText::kLongestLine + 1, '\x80');
  EXPECT_EQ(Shown(strays, 100000).size(), 3 * strays.size() + 1);
}

TEST(GeneratorTextTest, OnlyTheNewestLinesCome) {
  ScreenText text;
  std::string lines(3 * ScreenText::kMostLines, '\n');
  const std::string shown = text.Add("old" + lines + "new\nlast");
  EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), ScreenText::kMostLines - 1);
  EXPECT_TRUE(shown.ends_with("\nnew\nlast"));
}

}  // namespace
