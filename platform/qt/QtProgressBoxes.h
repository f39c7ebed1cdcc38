#pragma once

#include "platform/ProgressBox.h"

namespace morvane {

/// The toolkit's progress dialogs.
class QtProgressBoxes : public ProgressBoxes {
 public:
  std::unique_ptr<ProgressBox> Open(const std::string& text) override;
};

}  // namespace morvane
