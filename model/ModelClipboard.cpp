#include "model/ModelClipboard.h"

#include "platform/Clipboard.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

void ModelClipboard::Put(const std::string& bytes) {
  if (Service<Clipboard>::Get().Put({{kFormat, bytes}}) != ClipboardError::None) {
    ShowMessage(LoadText(IDS_CLIPBOARD_ERROR));
  }
}

std::optional<std::string> ModelClipboard::Get() {
  ClipboardError error = ClipboardError::None;
  auto bytes = Service<Clipboard>::Get().Get(kFormat, error);
  if (error == ClipboardError::None) return bytes;
  ShowMessage(LoadText(IDS_CLIPBOARD_ERROR));
  return std::nullopt;
}

bool ModelClipboard::IsAvailable() const { return Service<Clipboard>::Get().IsAvailable(kFormat); }

}  // namespace morvane
