#pragma once

#include "platform/CWaitCursor.h"

/// The wait cursor over the whole program.
class QtWaitCursors : public WaitCursors {
 public:
  void Begin() override;
  void End() override;
};
