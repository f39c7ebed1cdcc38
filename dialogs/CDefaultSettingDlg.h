#pragma once

#include "platform/CDialog.h"

struct Defaults;

/// Edits what new objects and new views take.
class CDefaultSettingDlg : public CDialog {
 public:
  enum ControlId : int {
    IDC_GROUPS = 100,
    IDC_STATE,
    IDC_STATE_NAME,
    IDC_STATE_ANCHOR,
    IDC_ENTRY,
    IDC_EXIT,
    IDC_STATE_BG,
    IDC_STATE_BG_ROW,
    IDC_STATE_TRANSPARENT,
    IDC_STATE_BG_COLOR,
    IDC_MESG_COLUMN,
    IDC_MESG,
    IDC_MESG_ANCHOR,
    IDC_BORDER,
    IDC_BORDER_ROW,
    IDC_NO_BORDER,
    IDC_BORDER_COLOR,
    IDC_MESG_BG,
    IDC_MESG_BG_ROW,
    IDC_MESG_TRANSPARENT,
    IDC_MESG_BG_COLOR,
    IDC_LINE,
    IDC_LINE_COLOR,
    IDC_LINE_STYLE,
    IDC_GRID_COLUMN,
    IDC_GRID,
    IDC_SHOW_GRID,
    IDC_TEXT_STYLE
  };

  static CDefaultSettingDlg& Instance();

  /// Reads all values anew and runs the dialog. What it changes is in the store at once; "Save"
  /// writes it to the profile, and "Cancel" brings back what the profile holds.
  void ShowDialog();

 protected:
  void DoDataExchange(DataExchange& exchange) override;
  void OnInitDialog() override;
  void OnClicked(int id) override;
  bool OnOk() override;

 private:
  CDefaultSettingDlg();
  void AddState();
  void AddMesg();
  void AddLine();
  void AddGrid();
  void AddColorRow(int group, int row, int box, const char* label, int button);
  void EnableButtons();
  void ChooseFont();

  Defaults& defaults;
};
