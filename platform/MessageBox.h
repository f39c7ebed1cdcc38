#pragma once

#include <string>

#include "platform/ModalLoop.h"
#include "platform/Service.h"

namespace morvane {

/// The look of a message box: one of the button sets, an icon and a default button, added up.
enum MessageBoxFlags : unsigned {
  MB_OK = 0x0,
  MB_OKCANCEL = 0x1,
  MB_YESNOCANCEL = 0x3,
  MB_YESNO = 0x4,
  MB_ICONHAND = 0x10,
  MB_ICONEXCLAMATION = 0x30,
  MB_DEFBUTTON2 = 0x100,
};
inline constexpr unsigned kButtonSetMask = 0xF;
inline constexpr unsigned kIconMask = 0xF0;
/// The question before a deletion.
inline constexpr unsigned kConfirmFlags = MB_YESNO | MB_ICONHAND | MB_DEFBUTTON2;

enum class MessageAnswer { Ok, Cancel, Yes, No };

/// Modal message boxes. The default service has no screen: it writes the text on standard error
/// and gives the safe answer (OK, No, Cancel).
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows `text`, bytes as `LoadText` gives them, and waits for the answer.
  virtual MessageAnswer Show(const std::string& text, unsigned flags) = 0;
  static MessageBoxes& Default();
};

inline MessageAnswer ShowMessage(const std::string& text, unsigned flags = MB_OK) {
  const ModalLoop loop;
  return Service<MessageBoxes>::Get().Show(text, flags);
}

}  // namespace morvane
