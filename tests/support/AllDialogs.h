#pragma once

#include "codegen/CCodegenSheet.h"
#include "codegen/CGenerateCppDlg.h"
#include "dialogs/CDefaultSettingDlg.h"
#include "dialogs/CEventEditor.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/ConnectDlg.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/PreferencesDlg.h"
#include "dialogs/PrinterSetup.h"
#include "dialogs/StatePropDlg.h"
#include "surface/LayoutMgr.h"

namespace morvane {

/// One of each dialog, over an empty chart.
struct AllDialogs {
  LayoutMgr chart;
  StatePropDlg state;
  MesgPropDlg mesg;
  CLineProperty line;
  PrinterSetup printer;
  CEventEditor event;
  EntryExitEditor texts;
  EditMesgDlg note;
  LayoutMgrPropDlg model;
  CCodegenSheet sheet;
  PreferencesDlg preferences{{"English"}};
  FindReplaceDlg find{{chart.GetModel(), chart.GetProperties()}};
  ConnectDlg connect{"State Idle", {"State Busy", "Final state"}};
  CGenerateCppDlg generator{GeneratorKind::Cpp};
  CDefaultSettingDlg& settings = CDefaultSettingDlg::Instance();
  std::vector<Dialog*> list{&state, &mesg,  &line, &printer,   &event,    &texts,       &note,
                            &model, &sheet, &find, &generator, &settings, &preferences, &connect};
};

}  // namespace morvane
