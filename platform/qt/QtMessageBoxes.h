#pragma once

#include "platform/MessageBox.h"

namespace morvane {

/// Message boxes over the window in use.
class QtMessageBoxes : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string& text, unsigned flags) override;
};

}  // namespace morvane
