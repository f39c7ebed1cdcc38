#include <stdlib.h>

#include "shell/InstanceRequest.h"
#include "tests/support/ChartTest.h"

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
  std::string anyBytes = "/x/";
  for (int c = 255; c >= 0; --c) anyBytes += static_cast<char>(c);
  const InstanceRequest cases[] = {
      {},
      {"/charts/Lift.mrv", "shell/123_TIME99", "token"},
      {anyBytes, "", anyBytes},
      {"/" + std::string(0x10000 - 1, 'x'), "", ""},
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
  setenv("DESKTOP_STARTUP_ID", "id_TIME7", 1);
  unsetenv("XDG_ACTIVATION_TOKEN");
  std::filesystem::current_path(folder.Root());
  EXPECT_EQ(InstanceRequest::ForThisStart("a \xFF.mrv"),
            (InstanceRequest{folder.Path("a \xFF.mrv"), "id_TIME7", ""}));
  EXPECT_EQ(InstanceRequest::ForThisStart("/b.mrv").file, "/b.mrv");
  EXPECT_EQ(InstanceRequest::ForThisStart("").file, "");
  // A folder that is gone gives no path that means the same elsewhere.
  std::filesystem::remove(folder.Root());
  EXPECT_FALSE(InstanceRequest::ForThisStart("c.mrv").CanBeSent());
  std::filesystem::current_path(before);
  unsetenv("DESKTOP_STARTUP_ID");
  EXPECT_FALSE((InstanceRequest{"/" + std::string(0x10000, 'x'), "", ""}.CanBeSent()));
}

}  // namespace

}  // namespace morvane
