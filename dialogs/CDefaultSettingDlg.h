#pragma once

#include <cstdint>
#include <string>

#include "platform/CDialog.h"

/// The process-wide store of what new objects and new views take, and the dialog that edits it.
/// Nothing in it reaches an object that exists already.
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

  /// The store; the first call loads it from the profile.
  static CDefaultSettingDlg& Instance();

  /// Reads all values from the profile, each with its default.
  void LoadSettings();
  /// Reads all values anew and runs the dialog. What it changes is in the store at once; "Save"
  /// writes it to the profile, and "Cancel" brings back what the profile holds.
  void ShowDialog();

  std::string StateName;
  std::int32_t StateAnchor = 1;
  std::string Entry;
  std::string Exit;
  std::int32_t StateBgTransparent = 0;
  std::int32_t MesgAnchor = 1;
  std::int32_t MesgBorder = 1;  ///< 1 means that a new message has no border
  std::int32_t MesgBgTransparent = 1;
  std::int32_t ShowGrid = 1;
  COLORREF StateBgColor = 0xBFFFFF;
  COLORREF MesgBorderColor = 0x00FF00;
  COLORREF MesgBgColor = 0xFFFFFF;
  std::int32_t LineColor = 0;  ///< index into `kLineColours`
  std::int32_t LineStyle = 0;  ///< index into `kLineStyles`
  std::string FontName;
  std::int32_t FontSize = 80;  ///< tenths of a point
  COLORREF FontColor = 0x000080;

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
  void SaveSettings() const;
};
