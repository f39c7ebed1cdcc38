#include <gtest/gtest.h>

#include "codegen/ScreenText.h"

namespace morvane {

namespace {

TEST(GeneratorTextTest, LinesComeOutAlikeWhereverTheBytesAreCut) {
  const std::string letters(ScreenText::kLongestLine - 1, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {"one\ntwo", "one\ntwo"},
      {"one\r\ntwo\r\n", "one\ntwo\n"},
      {"one\r\r\n\ntwo", "one\n\ntwo"},
      {"10%\r20%\r", "10%\n20%"},
      {"gr\xC3\xB6\xC3\x9F\x65r\ncaf\xE9\n\xC3\xA9",
       "gr\xC3\xB6\xC3\x9F\x65r\ncaf\xC3\xA9\n\xC3\xA9"},
      // A long line goes on in the next.
      {letters + "\xC3\xB6y", letters + "\n\xC3\xB6y"},
      {letters + "z\n!", letters + "z\n!"}};
  for (const auto& [bytes, lines] : cases) {
    for (const std::size_t pieceSize : {1, 2, 3, 1000, 100000}) {
      if (bytes.size() > 1000 && pieceSize < 1000) continue;
      ScreenText text;
      std::string shown;
      for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
        shown.resize(shown.rfind('\n') + 1);
        shown += text.Add(bytes.substr(at, pieceSize));
      }
      EXPECT_EQ(shown, lines) << bytes << " in pieces of " << pieceSize;
    }
  }
}

TEST(GeneratorTextTest, OnlyTheNewestLinesCome) {
  const std::string lines(3 * ScreenText::kMostLines, '\n');
  const std::string shown = ScreenText().Add("old" + lines + "new\nlast");
  EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), ScreenText::kMostLines - 1);
  EXPECT_TRUE(shown.ends_with("\nnew\nlast"));
  const std::string strays(ScreenText::kLongestLine + 1, '\x80');
  EXPECT_EQ(ScreenText().Add(strays).size(), 3 * strays.size() + 1);
}

}  // namespace

}  // namespace morvane
