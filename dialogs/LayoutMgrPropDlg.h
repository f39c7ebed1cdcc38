#pragma once

#include <string>

#include "platform/CDialog.h"

/// The texts that describe a model.
class LayoutMgrPropDlg : public CDialog {
 public:
  enum ControlId : int { IDC_MODEL_NAME = 100, IDC_AUTHOR, IDC_DESCRIPTION };

  LayoutMgrPropDlg();

  std::string modelName;
  std::string author;
  std::string description;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
};
