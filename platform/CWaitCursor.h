#pragma once

#include "platform/Service.h"

/// Shows that the program is at work. The default service shows nothing.
class WaitCursors {
 public:
  virtual ~WaitCursors() = default;
  virtual void Begin() {}
  virtual void End() {}
  static WaitCursors& Default();
};

/// The wait cursor for as long as the object lives, or until `Restore`.
class CWaitCursor {
 public:
  CWaitCursor() { Service<WaitCursors>::Get().Begin(); }
  ~CWaitCursor() { Restore(); }
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;
  void Restore() {
    if (active) Service<WaitCursors>::Get().End();
    active = false;
  }

 private:
  bool active = true;
};
