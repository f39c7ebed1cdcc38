#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include "platform/windows/WindowsClipboard.h"

// Not together with the drawing's own headers, whose names are macros of the system.
namespace morvane {

std::string MetafileOfARectangle();

namespace {

std::optional<std::string> Get(WindowsClipboard& clipboard, const std::string& format) {
  ClipboardError error = ClipboardError::None;
  std::optional<std::string> bytes = clipboard.Get(format, error);
  EXPECT_EQ(error, ClipboardError::None) << format;
  return bytes;
}

TEST(WindowsClipboardTest, KeepsAllBytesUnderTheNamesOfOtherPrograms) {
  WindowsClipboard clipboard;
  const std::string chart("BEGIN\0\xFF\r\n\0", 10);
  const std::string png("\x89PNG", 4);
  ASSERT_EQ(clipboard.Put({{"MORVANE_FORMAT", chart},
                           {"image/png", png},
                           {"image/emf", "another name"},
                           {"text/plain", "a\nb\r\n\u72B6"}}),
            ClipboardError::None);
  WindowsClipboard other;
  EXPECT_EQ(Get(other, "MORVANE_FORMAT"), chart);
  EXPECT_EQ(Get(other, "image/png"), png);
  EXPECT_EQ(Get(other, "text/plain"), "a\nb\n\u72B6");
  EXPECT_FALSE(other.IsAvailable("image/emf"));
  EXPECT_TRUE(IsClipboardFormatAvailable(RegisterClipboardFormatW(L"MORVANE_FORMAT")));
  EXPECT_TRUE(IsClipboardFormatAvailable(RegisterClipboardFormatW(L"PNG")));

  ASSERT_EQ(other.Put({{"text/plain", "x"}}), ClipboardError::None);
  EXPECT_FALSE(clipboard.IsAvailable("MORVANE_FORMAT"));
  EXPECT_EQ(Get(clipboard, "MORVANE_FORMAT"), std::nullopt);
  ASSERT_TRUE(OpenClipboard(nullptr));
  const auto* text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
  EXPECT_STREQ(text, L"x");
  CloseClipboard();
}

TEST(WindowsClipboardTest, AMetafileIsOneOfTheSystem) {
  WindowsClipboard clipboard;
  const std::string emf = MetafileOfARectangle();
  ASSERT_EQ(clipboard.Put({{"image/x-emf", emf}}), ClipboardError::None);
  EXPECT_EQ(Get(clipboard, "image/x-emf"), emf);
  ASSERT_TRUE(OpenClipboard(nullptr));
  const auto file = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
  ENHMETAHEADER header = {};
  EXPECT_NE(GetEnhMetaFileHeader(file, sizeof header, &header), 0U);
  CloseClipboard();
  EXPECT_EQ(header.iType, static_cast<DWORD>(EMR_HEADER));
  EXPECT_EQ(header.dSignature, static_cast<DWORD>(ENHMETA_SIGNATURE));
  EXPECT_EQ(header.nBytes, emf.size());
  EXPECT_EQ(header.rclBounds.left, 10);
  EXPECT_EQ(header.rclBounds.bottom, 79);
  EXPECT_EQ(clipboard.Put({{"image/x-emf", "no metafile"}}), ClipboardError::Set);
}

TEST(WindowsClipboardTest, WaitsForAnotherProgramButNotForEver) {
  WindowsClipboard clipboard;
  const HWND holder =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_TRUE(OpenClipboard(holder));
  // The clipboard is open for a thread, as it is for a process.
  const auto putElsewhere = [&] {
    ClipboardError result = ClipboardError::None;
    std::thread([&] { result = WindowsClipboard().Put({{"MORVANE_FORMAT", "x"}}); }).join();
    return result;
  };
  EXPECT_EQ(putElsewhere(), ClipboardError::Open);
  CloseClipboard();
  EXPECT_EQ(putElsewhere(), ClipboardError::None);
  DestroyWindow(holder);
}

}  // namespace

}  // namespace morvane
