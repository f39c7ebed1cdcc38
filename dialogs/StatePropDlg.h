#pragma once

#include <cstdint>
#include <string>

#include "platform/CDialog.h"

/// The properties of a state. The owner fills the fields and takes them back after OK.
class StatePropDlg : public CDialog {
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

  std::string name;
  std::int32_t history = 0;
  COLORREF bgColor = 0xC0C0C0;
  std::int32_t transparent = 0;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
  void OnClicked(int id) override;

 private:
  void EnableButtons();
};
