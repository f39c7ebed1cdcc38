#pragma once

#include "platform/Service.h"

namespace morvane {

/// Shows that the program is at work. The default service shows nothing.
class WaitCursors {
 public:
  virtual ~WaitCursors() = default;
  virtual void Begin() {}
  virtual void End() {}
  static WaitCursors& Default();
};

/// The wait cursor for as long as the object lives, or until `Restore`.
class WaitCursor {
 public:
  WaitCursor() { Service<WaitCursors>::Get().Begin(); }
  ~WaitCursor() { Restore(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  void Restore() {
    if (active) Service<WaitCursors>::Get().End();
    active = false;
  }

 private:
  bool active = true;
};

}  // namespace morvane
