#pragma once

#include "platform/Dialog.h"

namespace morvane {

/// Shows dialogs as windows in front of the active one.
class QtDialogHost : public DialogHost {
 public:
  void Run(Dialog& dialog) override;
};

}  // namespace morvane
