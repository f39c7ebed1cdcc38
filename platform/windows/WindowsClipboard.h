#pragma once

#include "platform/Clipboard.h"

namespace morvane {

/// The system's clipboard. A metafile, a picture and a text stand there as all programs know them;
/// another MIME type, and a name without a slash, is a format that is registered under that name.
class WindowsClipboard : public Clipboard {
 public:
  WindowsClipboard();
  ~WindowsClipboard() override;
  WindowsClipboard(const WindowsClipboard&) = delete;
  WindowsClipboard& operator=(const WindowsClipboard&) = delete;

  ClipboardError Put(const std::vector<Item>& items) override;
  std::optional<std::string> Get(const std::string& format, ClipboardError& error) override;
  bool IsAvailable(const std::string& format) override;

 private:
  void* owner;  ///< the window in whose name the contents are put, of which nothing is seen
};

}  // namespace morvane
