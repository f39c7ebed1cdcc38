#pragma once

#include <string>

#include "platform/CDialog.h"

/// The editor of a state's entry and exit text.
class EntryExitEditor : public CDialog {
 public:
  enum ControlId : int { IDC_ENTRY = 100, IDC_EXIT };

  EntryExitEditor();

  std::string title;  ///< begins the caption
  std::string entry;
  std::string exit;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
};
