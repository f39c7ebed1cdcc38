#pragma once

#include <cstdint>
#include <string>

#include "model/Editors.h"
#include "platform/CDialog.h"

/// The properties of a state. The owner fills the fields and takes them back after OK.
class StatePropDlg : public CDialog, public StateFields {
 public:
  enum ControlId : int {
    IDC_NAME = 100,
    IDC_HISTORY,
    IDC_BACKGROUND,
    IDC_BACKGROUND_ROW,
    IDC_TRANSPARENT,
    IDC_BG_COLOR
  };

  StatePropDlg();

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
  void OnClicked(int id) override;

 private:
  void EnableButtons();
};
