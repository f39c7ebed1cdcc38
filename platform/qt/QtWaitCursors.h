#pragma once

#include "platform/WaitCursor.h"

namespace morvane {

/// The wait cursor over the whole program.
class QtWaitCursors : public WaitCursors {
 public:
  void Begin() override;
  void End() override;
};

}  // namespace morvane
