#include "dialogs/DialogEditors.h"

#include <utility>

#include "dialogs/CEventEditor.h"
#include "dialogs/CLineProperty.h"
#include "dialogs/ConnectDlg.h"
#include "dialogs/EditMesgDlg.h"
#include "dialogs/EntryExitEditor.h"
#include "dialogs/FindReplaceDlg.h"
#include "dialogs/LayoutMgrPropDlg.h"
#include "dialogs/MesgPropDlg.h"
#include "dialogs/PrinterSetup.h"
#include "dialogs/StatePropDlg.h"
#include "model/CodeLanguage.h"
#include "model/ModelProperties.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

bool EditBox(MesgPropDlg& dialog, BoxFields& fields) {
  static_cast<BoxFields&>(dialog) = fields;
  if (!dialog.DoModal()) return false;
  fields = dialog;
  return true;
}

}  // namespace

Syntax DialogEditors::PresentSyntax() const {
  return CodeLanguage::Of(activeChart ? activeChart() : nullptr);
}

bool DialogEditors::EditState(StateFields& fields) {
  StatePropDlg dialog;
  static_cast<StateFields&>(dialog) = fields;
  if (!dialog.DoModal()) return false;
  fields = dialog;
  return true;
}

bool DialogEditors::EditEntryExit(const std::string& name, std::string& entry, std::string& exit) {
  EntryExitEditor editor(PresentSyntax());
  editor.title = name;
  editor.entry = entry;
  editor.exit = exit;
  if (!editor.DoModal()) return false;
  entry = std::move(editor.entry);
  exit = std::move(editor.exit);
  return true;
}

bool DialogEditors::EditEvent(std::string& event, std::string& guard, std::string& effect) {
  CEventEditor editor(PresentSyntax());
  if (!event.empty()) editor.event = event;
  editor.guard = guard;
  editor.effect = effect;
  if (!editor.DoModal()) return false;
  event = std::move(editor.event);
  guard = std::move(editor.guard);
  effect = std::move(editor.effect);
  return true;
}

bool DialogEditors::EditMesg(BoxFields& fields) {
  MesgPropDlg dialog;
  return EditBox(dialog, fields);
}

/// A note has always its border.
bool DialogEditors::EditNote(BoxFields& fields) {
  MesgPropDlg dialog;
  dialog.title = LoadText(IDS_NOTE_PROPERTIES);
  dialog.mayChangeBorder = 0;
  return EditBox(dialog, fields);
}

bool DialogEditors::EditText(const std::string& title, std::string& text) {
  EditMesgDlg editor;
  editor.title = title;
  editor.text = text;
  if (!editor.DoModal()) return false;
  text = std::move(editor.text);
  return true;
}

bool DialogEditors::EditLine(std::int32_t& colourIndex, std::int32_t& styleIndex) {
  CLineProperty dialog;
  dialog.colourIndex = colourIndex;
  dialog.styleIndex = styleIndex;
  if (!dialog.DoModal()) return false;
  colourIndex = dialog.colourIndex;
  styleIndex = dialog.styleIndex;
  return true;
}

bool DialogEditors::ChooseTargets(const std::string& source, const std::vector<std::string>& names,
                                  std::vector<int>& chosen) {
  ConnectDlg dialog(source, names);
  dialog.chosen = chosen;
  if (!dialog.DoModal()) return false;
  chosen = dialog.chosen;
  return true;
}

bool DialogEditors::EditModelProperties(ModelProperties& properties) {
  LayoutMgrPropDlg dialog;
  dialog.author = properties.Author;
  dialog.description = properties.Description;
  dialog.modelName = properties.ModelName;
  if (!dialog.DoModal()) return false;
  const auto take = [&properties](std::string ModelProperties::*field, const std::string& text) {
    properties.*field = text.empty() ? ModelProperties::DefaultOf(field) : text;
  };
  take(&ModelProperties::ModelName, dialog.modelName);
  take(&ModelProperties::Author, dialog.author);
  take(&ModelProperties::Description, dialog.description);
  return true;
}

bool DialogEditors::EditPaper(PaperChoice& choice) {
  PrinterSetup dialog;
  dialog.choice = choice;
  if (!dialog.DoModal()) return false;
  choice = dialog.choice;
  return true;
}

void DialogEditors::FindAndReplace(const SearchedChart& chart) {
  FindReplaceDlg dialog(chart);
  dialog.DoModal();
}

}  // namespace morvane
