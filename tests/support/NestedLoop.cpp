#include "tests/support/NestedLoop.h"

#include <map>
#include <utility>

namespace morvane {

namespace {

std::map<int, NestedLoop::Part>& Parts() {
  static std::map<int, NestedLoop::Part> parts;
  return parts;
}

}  // namespace

NestedLoop::Member::Member(Part part) {
  static int last = 0;
  id = ++last;
  Parts()[id] = std::move(part);
}

NestedLoop::Member::~Member() { Parts().erase(id); }

void NestedLoop::Run() {
  static bool running = false;
  if (std::exchange(running, true)) return;
  // A window may come or go while the others live on.
  const std::map<int, Part> parts = Parts();
  for (const auto& [id, part] : parts) {
    if (Parts().count(id) != 0) part();
  }
  running = false;
}

}  // namespace morvane
