#include "tests/support/ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

#include "tests/support/NestedLoop.h"

namespace morvane {

ScriptedMessageBoxes::~ScriptedMessageBoxes() {
  for (const auto& left : expected) ADD_FAILURE() << "no message box came: " << left.first;
}

MessageAnswer ScriptedMessageBoxes::Show(const std::string& text, unsigned flags) {
  shown.push_back(text);
  lastFlags = flags;
  NestedLoop::Run();
  if (expected.empty()) {
    ADD_FAILURE() << "unexpected message box: " << text;
    return (flags & kButtonSetMask) == MB_OK ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
  const auto [textPart, answer] = expected.front();
  expected.pop_front();
  EXPECT_NE(text.find(textPart), std::string::npos)
      << "the box says: " << text << "\nexpected: " << textPart;
  return answer;
}

}  // namespace morvane
