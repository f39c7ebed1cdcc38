#pragma once

#include "platform/CDialog.h"

/// Shows dialogs as windows in front of the active one.
class QtDialogHost : public DialogHost {
 public:
  void Run(CDialog& dialog) override;
};
