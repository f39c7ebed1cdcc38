#pragma once

#include <cstdint>
#include <string>

#include "model/Editors.h"
#include "platform/CDialog.h"

/// The properties of a message or a note. The owner fills the fields and takes them back after OK.
class MesgPropDlg : public CDialog, public BoxFields {
 public:
  enum ControlId : int {
    IDC_BACKGROUND = 100,
    IDC_BACKGROUND_ROW,
    IDC_TRANSPARENT,
    IDC_BG_COLOR,
    IDC_BORDER,
    IDC_BORDER_ROW,
    IDC_NO_BORDER,
    IDC_BORDER_COLOR,
    IDC_ANCHOR,
    IDC_HIDDEN
  };

  MesgPropDlg();

  std::string title;  ///< the caption
  std::int32_t mayChangeBorder = 1;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
  void OnClicked(int id) override;

 private:
  void EnableButtons();
};
