#pragma once

#include <string>

#include "platform/MessageBox.h"
#include "platform/UseService.h"

/// Answers every question with Yes or OK, without a word.
class AgreeingMessageBoxes : public MessageBoxes {
 public:
  MessageAnswer Show(const std::string&, unsigned flags) override {
    const unsigned buttons = flags & kButtonSetMask;
    return buttons == MB_OK || buttons == MB_OKCANCEL ? MessageAnswer::Ok : MessageAnswer::Yes;
  }

 private:
  const UseService<MessageBoxes> use{*this};
};
