#pragma once

#include "platform/Clipboard.h"
#include "platform/UseService.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

/// A clipboard that keeps what it gets, or refuses at a step. Its owner may be another program, for
/// which it has to wait.
class FakeClipboard : public Clipboard {
 public:
  ClipboardError Put(const std::vector<Item>& put) override {
    NestedLoop::Run();
    if (failure == ClipboardError::None) items = put;
    return failure;
  }
  std::optional<std::string> Get(const std::string& format, ClipboardError& error) override {
    NestedLoop::Run();
    error = failure;
    if (failure != ClipboardError::None || !IsAvailable(format)) return std::nullopt;
    return items.front().bytes;
  }
  bool IsAvailable(const std::string& format) override {
    return !items.empty() && items.front().format == format;
  }

  ClipboardError failure = ClipboardError::None;
  std::vector<Item> items;

 private:
  const UseService<Clipboard> use{*this};
};

}  // namespace morvane
