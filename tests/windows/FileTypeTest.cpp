#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/FileType.h"
#include "platform/windows/RegistryKey.h"

namespace morvane {

namespace {

/// A kind of file that no program has.
class FileTypeTest : public testing::Test {
 protected:
  FileTypeTest() { Clear(); }
  ~FileTypeTest() override { Clear(); }

  void Clear() const {
    for (const std::string& key : {type.extension, type.id}) RegistryKey::Remove(classes + key);
  }
  std::string Seen(const std::string& path) const {
    return RegistryKey::Open(classes + path).Text("");
  }

  const std::string classes = "Software\\Classes\\";
  const FileType type{".mrvtest" + std::to_string(GetCurrentProcessId()),
                      "mrvtestfile" + std::to_string(GetCurrentProcessId()), "A test"};
  const std::string program = "C:\\Program Files\\\u72B6\\bin\\morvane.exe";
};

TEST_F(FileTypeTest, OpensWithTheProgramThatStartedLast) {
  EXPECT_TRUE(type.Register("C:\\old.exe"));
  EXPECT_TRUE(type.Register(program));
  EXPECT_FALSE(type.Register(program)) << "nothing new";
  EXPECT_EQ(Seen(type.extension), type.id);
  EXPECT_EQ(Seen(type.id), "A test");
  EXPECT_EQ(Seen(type.id + "\\DefaultIcon"), '"' + program + "\",0");
  EXPECT_EQ(Seen(type.id + "\\shell\\open\\command"), '"' + program + "\" \"%1\"");
  EXPECT_TRUE(RegistryKey::Open(classes + type.extension + "\\ShellNew").Get("NullFile"));
}

TEST_F(FileTypeTest, LeavesAnExtensionToTheProgramThatHasIt) {
  RegistryKey::Make(classes + type.extension).SetText("", "otherfile");
  EXPECT_TRUE(type.Register(program));
  EXPECT_EQ(Seen(type.extension), "otherfile");
  EXPECT_TRUE(RegistryKey::Open(classes + type.extension + "\\OpenWithProgids").Get(type.id));
  EXPECT_FALSE(RegistryKey::Open(classes + type.extension + "\\ShellNew").IsOpen());
}

}  // namespace

}  // namespace morvane
