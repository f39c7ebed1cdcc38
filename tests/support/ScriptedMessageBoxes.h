#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/MessageBox.h"
#include "platform/UseService.h"

namespace morvane {

/// Takes the place of the message boxes for the length of a test. A box that nobody expected, one
/// with another text and an answer that nobody asked for each fail the test. The windows live on
/// while a box waits for its answer.
class ScriptedMessageBoxes : public MessageBoxes {
 public:
  ~ScriptedMessageBoxes() override;

  /// The next box has to contain `textPart`, and gets the answer.
  void Expect(std::string textPart, MessageAnswer answer = MessageAnswer::Ok) {
    expected.emplace_back(std::move(textPart), answer);
  }
  /// The flags of the last box.
  unsigned LastFlags() const { return lastFlags; }
  const std::vector<std::string>& Shown() const { return shown; }

  MessageAnswer Show(const std::string& text, unsigned flags) override;

 private:
  std::deque<std::pair<std::string, MessageAnswer>> expected;
  std::vector<std::string> shown;
  unsigned lastFlags = 0;
  const UseService<MessageBoxes> use{*this};
};

}  // namespace morvane
