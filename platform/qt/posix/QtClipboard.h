#pragma once

#include <QString>

#include "platform/Clipboard.h"

namespace morvane {

/// The system's clipboard. A format is a MIME type; a name without a slash is a format that is
/// registered under that name.
class QtClipboard : public Clipboard {
 public:
  ClipboardError Put(const std::vector<Item>& items) override;
  std::optional<std::string> Get(const std::string& format, ClipboardError& error) override;
  bool IsAvailable(const std::string& format) override;

  static QString MimeTypeOf(const std::string& format);
};

}  // namespace morvane
