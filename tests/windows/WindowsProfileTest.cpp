#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include "platform/windows/RegistryKey.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsProfile.h"

namespace morvane {

namespace {

/// Settings of the test's own, not those of the user.
class WindowsProfileTest : public testing::Test {
 protected:
  WindowsProfileTest() { RegistryKey::Remove(root); }
  ~WindowsProfileTest() override { RegistryKey::Remove(root); }

  /// Puts a value into the registry as another program may do.
  void Put(const std::string& key, const std::string& name, DWORD type, const std::string& bytes) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(root + key).c_str(), Wide(name).c_str(), type,
                              bytes.data(), static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }
  DWORD TypeOf(const std::string& key, const std::string& name) {
    DWORD type = REG_NONE;
    RegGetValueW(HKEY_CURRENT_USER, Wide(root + key).c_str(), Wide(name).c_str(), RRF_RT_ANY, &type,
                 nullptr, nullptr);
    return type;
  }

  const std::string root =
      "Software\\Halvern\\Morvane test " + std::to_string(GetCurrentProcessId());
  WindowsProfile profile{root};
};

TEST_F(WindowsProfileTest, NumbersAndTextsComeBackAsTheyWereWritten) {
  const struct {
    std::string text;
    DWORD type;
  } cases[] = {{"80", REG_DWORD},
               {"-2147483648", REG_DWORD},
               {"2147483648", REG_SZ},
               {"007", REG_SZ},
               {"+1", REG_SZ},
               {"", REG_SZ},
               {"a\r\nb\\ \"c\" %PATH%", REG_SZ},
               {"\u00E4\u72B6\U0001F600", REG_SZ},
               {std::string(300'000, 'x'), REG_SZ}};
  for (const std::string key : {"Key", "back\\slash and \u72B6", ""}) {
    for (const auto& [text, type] : cases) {
      profile.WriteString("Settings", key, text);
      EXPECT_EQ(WindowsProfile(root).Find("Settings", key), text);
      EXPECT_EQ(TypeOf("\\Settings", key), type) << text;
      EXPECT_FALSE(profile.IsDamaged("Settings", key));
    }
  }
  profile.WriteString("Settings", "Old", "caf\xE9");
  EXPECT_EQ(profile.Find("Settings", "Old"), "caf\u00E9") << "it was no UTF-8";
  EXPECT_EQ(profile.Find("Settings", "None"), std::nullopt);
  EXPECT_EQ(profile.Find("None", "Key"), std::nullopt);
}

TEST_F(WindowsProfileTest, ReadsWhatOthersWroteAndSaysWhatIsNoText) {
  const auto wide = [](std::wstring_view text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
  };
  Put("\\Settings", "NoEnd", REG_SZ, wide(L"ab"));
  Put("\\Settings", "Odd", REG_SZ, wide(L"ab") + 'c');
  Put("\\Settings", "Number", REG_DWORD, std::string("\x50\0\0\0", 4));
  EXPECT_EQ(profile.GetString("Settings", "NoEnd", ""), "ab");
  EXPECT_EQ(profile.GetString("Settings", "Odd", ""), "ab");
  EXPECT_EQ(profile.GetInt("Settings", "Number", 0), 80);
  Put("\\Settings", "Binary", REG_BINARY, "12");
  Put("\\Settings", "Short", REG_DWORD, "12");
  for (const char* key : {"Binary", "Short"}) {
    EXPECT_TRUE(profile.IsDamaged("Settings", key)) << key;
    EXPECT_EQ(profile.Find("Settings", key), std::nullopt) << key;
  }
}

TEST_F(WindowsProfileTest, TheLanguageIsTheDefaultValueOfItsKey) {
  Put("\\Language", "", REG_SZ, std::string("f\0r\0a\0\0\0", 8));
  EXPECT_EQ(profile.GetString("", "Language", ""), "fra");
  profile.Change("", [](Profile::Section& values) {
    EXPECT_EQ(values, (Profile::Section{{"Language", "fra"}}));
    values.erase("Language");
  });
  EXPECT_EQ(profile.Find("", "Language"), std::nullopt);
  Put("\\Language", "", REG_BINARY, "fra");
  EXPECT_TRUE(profile.IsDamaged("", "Language"));
}

TEST_F(WindowsProfileTest, ChangesOfSeveralCopiesAtOnceAllCount) {
  constexpr int kChanges = 50;
  const auto countUp = [this] {
    WindowsProfile copy(root);
    for (int i = 0; i < kChanges; ++i) {
      copy.Change("Recent", [](Profile::Section& values) {
        values["Count"] = std::to_string(std::atoi(values["Count"].c_str()) + 1);
      });
    }
  };
  std::thread other(countUp);
  countUp();
  other.join();
  EXPECT_EQ(profile.GetInt("Recent", "Count", 0), 2 * kChanges);
  profile.Change("Recent", [](Profile::Section& values) { values = {{"File1", "C:\\a"}}; });
  EXPECT_EQ(RegistryKey::Open(root + "\\Recent").ValueNames(), std::vector<std::string>{"File1"});
}

TEST_F(WindowsProfileTest, WhatTheRegistryDoesNotTakeHoldsForThisRun) {
  const std::string tooLong(300, 'k');
  testing::internal::CaptureStderr();
  for (int i = 0; i < 2; ++i) profile.Write(tooLong, {{"Key", "text"}});
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "The settings cannot be saved\n\nHKEY_CURRENT_USER\\" + root + "\n")
      << "said once";
  EXPECT_EQ(profile.GetString(tooLong, "Key", ""), "text");
  EXPECT_EQ(WindowsProfile(root).Find(tooLong, "Key"), std::nullopt);
  profile.WriteString("Settings", "Key", "stored");
  EXPECT_EQ(WindowsProfile(root).Find("Settings", "Key"), "stored");
}

}  // namespace

}  // namespace morvane
