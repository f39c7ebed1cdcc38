#pragma once

#include <string>

#include "platform/CDialog.h"

/// The editor of a message: event, guard and effect.
class CEventEditor : public CDialog {
 public:
  enum ControlId : int {
    IDC_EVENT_GROUP = 100,
    IDC_EVENT,
    IDC_GUARD_GROUP,
    IDC_GUARD,
    IDC_EFFECT_GROUP,
    IDC_EFFECT
  };

  CEventEditor();

  std::string event = "-Edit-";
  std::string guard;
  std::string effect;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  bool OnOk() override;
};
