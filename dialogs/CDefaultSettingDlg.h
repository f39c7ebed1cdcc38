#pragma once

#include "platform/Dialog.h"

namespace morvane {

struct Defaults;

/// Edits what new objects and new views take.
class CDefaultSettingDlg : public Dialog {
 public:
  enum ControlId : int {
    kGroupsId = 100,
    kStateId,
    kStateNameId,
    kStateAnchorId,
    kEntryId,
    kExitId,
    kStateBgId,
    kStateBgRowId,
    kStateTransparentId,
    kStateBgColourId,
    kMesgColumnId,
    kMesgId,
    kMesgAnchorId,
    kBorderId,
    kBorderRowId,
    kNoBorderId,
    kBorderColourId,
    kMesgBgId,
    kMesgBgRowId,
    kMesgTransparentId,
    kMesgBgColourId,
    kLineId,
    kLineColourId,
    kLineStyleId,
    kGridColumnId,
    kGridId,
    kShowGridId,
    kTextStyleId
  };

  static CDefaultSettingDlg& Instance();

  /// Reads all values anew and runs the dialog. What it changes is in the store at once; "Save"
  /// writes it to the profile, and "Cancel" brings back what the profile holds.
  void ShowDialog();

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  void OnFilled() override;
  void OnClicked(int id) override;
  bool OnOk() override;

 private:
  CDefaultSettingDlg();
  void AddState();
  void AddMesg();
  void AddLine();
  void AddGrid();
  struct SpokenControl {
    int id;
    const char* label;
    const char* spoken;
  };
  void AddColourRow(int group, int row, const SpokenControl& tick, const SpokenControl& colour);
  void EnableButtons();
  void ChooseFont();

  Defaults& defaults;
};

}  // namespace morvane
