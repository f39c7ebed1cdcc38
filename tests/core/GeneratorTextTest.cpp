#include <gtest/gtest.h>

#include "codegen/PlacedMessage.h"
#include "codegen/RecordAt.h"
#include "codegen/ScreenText.h"
#include "tests/support/Charts.h"

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

TEST(GeneratorTextTest, MessagesWithAPlaceAreFound) {
  const struct {
    std::string text;
    int line;  ///< 0 for no such message
    std::string kind;
    std::int32_t id = 0;
  } cases[] = {
      {"lift.mrv:47: error: GenericState 105 \"Listen\" overlaps", 47, "GenericState", 105},
      {"/My charts/a:b.mrv:3: warning: Mesg 7", 3, "Mesg", 7},
      {"/an: error: folder/lift.mrv:47: error: Note 8 is odd", 47, "Note", 8},
      {"lift.mrv:47: error: the chart has no initial state", 47, ""},
      {"lift.mrv:1: error: Transition -4 and Transition 0", 1, ""},
      {"lift.mrv:1: error: Transition 99999999999", 1, ""},
      {"lift.mrv: error: GenericState 105", 0, ""},
      {"lift.mrv:0: error: GenericState 105", 0, ""},
      {"lift.mrv:4x: error: GenericState 105", 0, ""},
      {"lift.mrv:47: note: GenericState 105", 0, ""},
      {"2 errors, 1 warning", 0, ""},
      {"", 0, ""}};
  for (const auto& [text, line, kind, id] : cases) {
    const auto message = PlacedMessage::Parse(text);
    EXPECT_EQ(message ? message->line : 0, line) << text;
    EXPECT_EQ(message ? message->kind : "", kind) << text;
    EXPECT_EQ(message ? message->id : 0, id) << text;
  }
}

TEST(GeneratorTextTest, EachLineOfAModelBelongsToItsRecord) {
  // The entry text reads like what stands around it.
  const std::string entry = "TEXTEND\r\nBEGIN GenericState 9\r\n\r\nEND DATA";
  const std::string state = StateRecord(101, {10, 10, 40, 30}, "A", entry);
  const std::string note = NoteRecord(102, {50, 10, 90, 30}, Block("END"));
  const std::string text = ChartText(state + note);
  int line = 0;
  int ownLines[3] = {};
  for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
    const bool isInState = at >= text.find(state) && at < text.find(note);
    const bool isInNote = at >= text.find(note) && at < text.find(note) + note.size();
    const int owner = isInState ? 101 : isInNote ? 102 : 0;
    EXPECT_EQ(RecordAt(text, ++line), owner) << "line " << line;
    ++ownLines[owner == 0 ? 0 : owner - 100];
  }
  EXPECT_GT(ownLines[1], 10);
  EXPECT_GT(ownLines[2], 5);
  EXPECT_EQ(RecordAt(text, line + 1), 0);
  // Damaged texts have an end, too.
  for (const char* damaged :
       {"", "BEGIN", "BEGIN Note 7\n9999999999999999999\nTEXTBEGIN\nTEXTEND"}) {
    EXPECT_EQ(RecordAt(damaged, 100), 0) << damaged;
  }
}

}  // namespace

}  // namespace morvane
