#pragma once

#include <string>

#include "platform/MessageBox.h"
#include "platform/UseService.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

/// Answers every question with Yes or OK, without a word, while the windows live on.
class AgreeingMessageBoxes : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string&, unsigned flags) override {
    NestedLoop::Run();
    const unsigned buttons = flags & kButtonSetMask;
    return buttons == MB_OK || buttons == MB_OKCANCEL ? MessageAnswer::Ok : MessageAnswer::Yes;
  }

 private:
  const UseService<MessageBoxes> use{*this};
};

}  // namespace morvane
