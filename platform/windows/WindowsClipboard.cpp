#include "platform/windows/WindowsClipboard.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <windows.h>

#include "drawing/TextCodec.h"
#include "platform/windows/WideText.h"

namespace morvane {

namespace {

/// Another program keeps the clipboard open for as long as it takes to read it.
constexpr int kTries = 10;
constexpr DWORD kPauseMilliseconds = 20;

struct KnownFormat {
  std::string_view mime;
  UINT id;              ///< 0 for a registered one
  const wchar_t* name;  ///< of that; null for one that nobody wants here
};

constexpr std::array<KnownFormat, 5> kKnownFormats = {{
    {"image/x-emf", CF_ENHMETAFILE, nullptr},
    {"text/plain", CF_UNICODETEXT, nullptr},
    {"image/png", 0, L"PNG"},
    // The same metafile by names that it has on other systems
    {"image/emf", 0, nullptr},
    {"application/x-openoffice-emf;windows_formatname=\"Image EMF\"", 0, nullptr},
}};

/// The system's number of a format; 0 for one that has no place there.
UINT NumberOf(const std::string& format) {
  const auto* known = std::ranges::find(kKnownFormats, format, &KnownFormat::mime);
  if (known == kKnownFormats.end()) return RegisterClipboardFormatW(Wide(format).c_str());
  if (known->id != 0 || known->name == nullptr) return known->id;
  return RegisterClipboardFormatW(known->name);
}

/// Has the clipboard open for as long as it lives.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int i = 0; i < kTries && !isOpen; ++i) {
      if (i > 0) Sleep(kPauseMilliseconds);
      isOpen = OpenClipboard(owner) != 0;
    }
  }
  ~OpenedClipboard() {
    if (isOpen) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

  bool IsOpen() const { return isOpen; }

 private:
  bool isOpen = false;
};

/// A block as the clipboard takes it; null if there is no memory.
HGLOBAL MakeBlock(std::string_view bytes) {
  // The system makes no block of no bytes.
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, std::max<std::size_t>(bytes.size(), 1));
  void* place = block != nullptr ? GlobalLock(block) : nullptr;
  if (place == nullptr) {
    GlobalFree(block);
    return nullptr;
  }
  std::memcpy(place, bytes.data(), bytes.size());
  GlobalUnlock(block);
  return block;
}

std::optional<std::string> BytesOfBlock(HGLOBAL block) {
  const void* place = GlobalLock(block);
  if (place == nullptr) return std::nullopt;
  std::string bytes(static_cast<const char*>(place), GlobalSize(block));
  GlobalUnlock(block);
  return bytes;
}

/// Lines end with two characters there.
HGLOBAL MakeText(std::string_view text) {
  std::string lines;
  for (const char c : ToUtf8(text)) {
    if (c == '\n' && !lines.ends_with('\r')) lines += '\r';
    lines += c;
  }
  const std::wstring wide = Wide(lines);
  return MakeBlock(
      {reinterpret_cast<const char*>(wide.c_str()), (wide.size() + 1) * sizeof(wchar_t)});
}

std::optional<std::string> TextOfBlock(HGLOBAL block) {
  const std::optional<std::string> bytes = BytesOfBlock(block);
  if (!bytes) return std::nullopt;
  std::wstring wide(bytes->size() / sizeof(wchar_t), L'\0');
  std::memcpy(wide.data(), bytes->data(), wide.size() * sizeof(wchar_t));
  // What follows the text in its block is none of it.
  std::string text = Narrow(wide.substr(0, wide.find(L'\0')));
  std::size_t end = 0;
  while ((end = text.find("\r\n", end)) != std::string::npos) text.erase(end, 1);
  return text;
}

std::optional<std::string> BytesOfMetafile(HENHMETAFILE file) {
  std::string bytes(GetEnhMetaFileBits(file, 0, nullptr), '\0');
  const UINT copied = GetEnhMetaFileBits(file, static_cast<UINT>(bytes.size()),
                                         reinterpret_cast<BYTE*>(bytes.data()));
  return copied != 0 && copied == bytes.size() ? std::optional(bytes) : std::nullopt;
}

bool SetMetafile(std::string_view bytes) {
  const HENHMETAFILE file = SetEnhMetaFileBits(static_cast<UINT>(bytes.size()),
                                               reinterpret_cast<const BYTE*>(bytes.data()));
  if (file == nullptr) return false;
  if (SetClipboardData(CF_ENHMETAFILE, file) != nullptr) return true;
  DeleteEnhMetaFile(file);
  return false;
}

/// What was set belongs to the system.
bool Set(UINT format, std::string_view bytes) {
  if (format == CF_ENHMETAFILE) return SetMetafile(bytes);
  const HGLOBAL block = format == CF_UNICODETEXT ? MakeText(bytes) : MakeBlock(bytes);
  if (block == nullptr) return false;
  if (SetClipboardData(format, block) != nullptr) return true;
  GlobalFree(block);
  return false;
}

}  // namespace

WindowsClipboard::WindowsClipboard()
    : owner(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            GetModuleHandleW(nullptr), nullptr)) {}

WindowsClipboard::~WindowsClipboard() { DestroyWindow(static_cast<HWND>(owner)); }

ClipboardError WindowsClipboard::Put(const std::vector<Item>& items) {
  const OpenedClipboard opened(static_cast<HWND>(owner));
  if (!opened.IsOpen()) return ClipboardError::Open;
  if (EmptyClipboard() == 0) return ClipboardError::Empty;
  for (const Item& item : items) {
    const UINT format = NumberOf(item.format);
    if (format != 0 && !Set(format, item.bytes)) return ClipboardError::Set;
  }
  return ClipboardError::None;
}

std::optional<std::string> WindowsClipboard::Get(const std::string& format, ClipboardError& error) {
  error = ClipboardError::None;
  const UINT number = NumberOf(format);
  const OpenedClipboard opened(static_cast<HWND>(owner));
  if (!opened.IsOpen()) {
    error = ClipboardError::Open;
    return std::nullopt;
  }
  if (number == 0 || IsClipboardFormatAvailable(number) == 0) return std::nullopt;
  const HANDLE data = GetClipboardData(number);
  std::optional<std::string> bytes;
  if (data != nullptr && number == CF_ENHMETAFILE) {
    bytes = BytesOfMetafile(static_cast<HENHMETAFILE>(data));
  } else if (data != nullptr) {
    bytes = number == CF_UNICODETEXT ? TextOfBlock(data) : BytesOfBlock(data);
  }
  // Promised by its owner, but not handed over.
  if (!bytes) error = ClipboardError::Get;
  return bytes;
}

bool WindowsClipboard::IsAvailable(const std::string& format) {
  const UINT number = NumberOf(format);
  return number != 0 && IsClipboardFormatAvailable(number) != 0;
}

}  // namespace morvane
