#pragma once

#include <string>

#include "platform/MessageBox.h"

/// Answers every question with Yes or OK, without a word.
class AgreeingMessageBoxes : public MessageBoxes {
 public:
  AgreeingMessageBoxes() : former(Service<MessageBoxes>::Set(this)) {}
  ~AgreeingMessageBoxes() override { Service<MessageBoxes>::Set(former); }
  MessageAnswer Show(const std::string&, unsigned flags) override {
    const unsigned buttons = flags & kButtonSetMask;
    return buttons == MB_OK || buttons == MB_OKCANCEL ? MessageAnswer::Ok : MessageAnswer::Yes;
  }

 private:
  MessageBoxes* former;
};
