#pragma once

#include <string>

#include "platform/MessageBox.h"

namespace morvane {

/// Boxes that nobody sees, for charts that are read only to be looked at: each is answered as if
/// the user put it away.
class NoMessages : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string&, unsigned flags) override {
    return (flags & kButtonSetMask) == MB_OK ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
};

}  // namespace morvane
