#pragma once

#include <string>

#include "platform/CDialog.h"

/// The editor of a note's text.
class EditMesgDlg : public CDialog {
 public:
  enum ControlId : int { IDC_TEXT = 100 };

  EditMesgDlg();

  std::string title = "Text";  ///< begins the caption
  std::string text;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
};
