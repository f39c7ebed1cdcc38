#include "platform/FileSystem.h"
#include "shell/InstanceRequest.h"
#include "tests/support/ChartTest.h"
#include "tests/support/Variables.h"

namespace morvane {

namespace {

using State = InstanceRequestReader::State;

/// The state after the bytes came in pieces of that size.
State ReadInPieces(InstanceRequestReader& reader, std::string_view bytes, std::size_t size) {
  State state = State::Partial;
  for (std::size_t at = 0; at < bytes.size(); at += size) {
    state = reader.Add(bytes.substr(at, size));
  }
  return state;
}

TEST(InstanceRequestTest, ComesAsItWasSentInPiecesOfAnySize) {
  const std::string root = AbsolutePath("/");
  std::string anyBytes = root;
  for (int c = 255; c >= 0; --c) anyBytes += static_cast<char>(c);
  const InstanceRequest cases[] = {
      {},
      {root + "Lift.mrv", "shell/123_TIME99", "token"},
      {anyBytes, "", anyBytes},
      {root + std::string(0x10000 - root.size(), 'x'), "", ""},
  };
  for (const InstanceRequest& request : cases) {
    EXPECT_TRUE(request.CanBeSent());
    const std::string bytes = request.Encode();
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, bytes.size()}) {
      InstanceRequestReader reader;
      EXPECT_EQ(ReadInPieces(reader, bytes, size), State::Complete);
      EXPECT_EQ(reader.Request(), request);
    }
  }
}

TEST(InstanceRequestTest, AnythingElseIsDamagedAndStaysSo) {
  const std::string good = InstanceRequest{"/a", "", ""}.Encode();
  const std::string mark = good.substr(0, good.find('\n') + 1);
  const std::string damaged[] = {"x",
                                 "GET / HTTP/1.1\r\n",
                                 mark.substr(0, mark.size() - 1) + "\r",
                                 mark + "\xFF\xFF\xFF\xFF",
                                 mark + std::string("\0\1\0\1", 4),
                                 good + "m"};
  for (const std::string& bytes : damaged) {
    for (const std::size_t size : {std::size_t{1}, bytes.size()}) {
      InstanceRequestReader reader;
      EXPECT_EQ(ReadInPieces(reader, bytes, size), State::Damaged) << bytes;
      EXPECT_EQ(reader.Add(good), State::Damaged);
    }
  }
}

TEST(InstanceRequestTest, APathBeginsAtTheWorkingFolderOfItsStart) {
  const std::filesystem::path before = std::filesystem::current_path();
  const TempFolder folder;
  SetVariable("DESKTOP_STARTUP_ID", "id_TIME7");
  SetVariable("XDG_ACTIVATION_TOKEN", nullptr);
  std::filesystem::current_path(folder.Root());
  const std::string chart = AbsolutePath(folder.Path("b.mrv"));
  EXPECT_EQ(AbsolutePath("b.mrv"), chart);
  EXPECT_EQ(InstanceRequest::ForThisStart("a \u00FF.mrv"),
            (InstanceRequest{AbsolutePath("a \u00FF.mrv"), "id_TIME7", ""}));
  EXPECT_EQ(InstanceRequest::ForThisStart(chart).file, chart);
  EXPECT_EQ(InstanceRequest::ForThisStart("").file, "");
  std::filesystem::current_path(before);
  SetVariable("DESKTOP_STARTUP_ID", nullptr);
  EXPECT_FALSE((InstanceRequest{"/" + std::string(0x10000, 'x'), "", ""}.CanBeSent()));
}

}  // namespace

}  // namespace morvane
