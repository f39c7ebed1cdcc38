#include <algorithm>
#include <string_view>
#include <utility>

#include "model/Collection.h"
#include "model/Editors.h"
#include "model/ModelMgr.h"
#include "model/ObjectBrowser.h"
#include "persistence/CDocument.h"
#include "persistence/UndoHistory.h"
#include "platform/CWaitCursor.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "surface/Generators.h"
#include "surface/LayoutMgr.h"

// The commands of a chart: what each does, and when it can be given.

namespace {

/// All of a model text behind the line of the zoom, which is the second one.
std::string_view BehindZoom(std::string_view text) {
  for (int line = 0; line < 2; ++line)
    text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
  return text;
}

}  // namespace

bool LayoutMgr::ShowSnapshot(const SharedText& text) {
  std::string reason;
  if (text == nullptr) return false;
  if (Restore(*text, reason)) return true;
  // A snapshot is this program's own text; there may be no memory for another chart.
  ShowMessage(reason, MB_ICONHAND);
  return false;
}

/// A zoom since the present snapshot becomes a part of it, if nothing else has changed.
void LayoutMgr::KeepZoom() {
  const SharedText snapshot = undoHistory->Current();
  if (zoom == snapshotZoom || snapshot == nullptr) return;
  std::string text = ModelText();
  if (BehindZoom(text) == BehindZoom(*snapshot)) undoHistory->Amend(std::move(text));
}

void LayoutMgr::Undo() {
  if (!undoHistory->CanUndo()) return;
  KeepZoom();
  if (!ShowSnapshot(undoHistory->Previous())) return;
  undoHistory->StepBack();
  snapshotZoom = zoom;
  TellDocument(undoHistory->Current());
}

void LayoutMgr::Redo() {
  if (!undoHistory->CanRedo()) return;
  KeepZoom();
  if (!ShowSnapshot(undoHistory->Next())) return;
  undoHistory->StepForward();
  snapshotZoom = zoom;
  TellDocument(undoHistory->Current());
}

void LayoutMgr::DeleteSelection() {
  {
    const CWaitCursor wait;
    model->DeleteSelected(true);
  }
  Invalidate();
  TakeSnapshot();
}

bool LayoutMgr::IsEnabled(unsigned id) const {
  switch (id) {
    case ID_ZOOM_IN: return zoom < kMaxZoom;
    case ID_ZOOM_OUT: return zoom > kMinZoom;
    case ID_ZOOM_NORMAL: return zoom != kNormalZoom;
    case ID_EDIT_UNDO: return undoHistory->CanUndo();
    case ID_EDIT_REDO: return undoHistory->CanRedo();
    case ID_EDIT_PASTE: return model->CanPaste();
    case ID_EDIT_SELECT_ALL: return !model->Objects().empty();
    case ID_DELETE:
    case ID_BRING_TO_FRONT:
    case ID_SEND_TO_BACK:
    case ID_EDIT_COPY:
    case ID_EDIT_CUT: return !GetSelection().IsEmpty();
    default: return true;
  }
}

CommandState LayoutMgr::OnUpdateCommand(unsigned id) {
  switch (id) {
    case ID_ZOOM_IN:
    case ID_ZOOM_OUT:
    case ID_ZOOM_NORMAL:
    case ID_REFRESH:
    case ID_DELETE:
    case ID_BRING_TO_FRONT:
    case ID_SEND_TO_BACK:
    case ID_EDIT_SELECT_ALL:
    case ID_EDIT_COPY:
    case ID_EDIT_CUT:
    case ID_EDIT_PASTE:
    case ID_EDIT_UNDO:
    case ID_EDIT_REDO:
    case ID_COPY_METAFILE:
    case ID_FILE_EXPORT:
    case ID_POINTER:
    case ID_TOOL_DRAG_STARTED:
    case ID_MODEL_PROPERTIES:
    case ID_OBJECT_PROPERTIES:
    case ID_CODEGEN_PROPERTIES:
    case ID_FIND_REPLACE:
    case ID_GENERATE_CPP:
    case ID_GENERATE_C:
    case ID_GENERATE_CSHARP:
    case ID_GENERATE_JAVA:
    case ID_GENERATE_XML:
    case ID_FILE_PRINT_SETUP:
    case ID_FILE_PRINT:
    case ID_FILE_PRINT_DIRECT:
    case ID_FILE_PRINT_PREVIEW:
    case ID_FILE_SAVE: return CommandState::Enabled(IsEnabled(id));
    case ID_TOOL_STATE:
    case ID_TOOL_TRANSITION:
    case ID_TOOL_INITIAL_STATE:
    case ID_TOOL_FINAL_STATE:
    case ID_TOOL_NOTE:
    case ID_TOOL_LINE: return CommandState::Checked(tool == id);
    default: return {};
  }
}

void LayoutMgr::RunSelectionCommand(unsigned id) {
  const CWaitCursor wait;
  switch (id) {
    case ID_EDIT_SELECT_ALL: model->SelectAll(); return;
    case ID_EDIT_COPY: model->Copy(); return;
    case ID_EDIT_CUT: model->Cut(); break;
    default: model->Paste(); break;
  }
  TakeSnapshot();
}

void LayoutMgr::EditModelProperties() {
  Service<Editors>::Get().EditModelProperties(properties);
  if (objectTree != nullptr) objectTree->SetRootText(properties.ModelName);
  Invalidate();
  TakeSnapshot();
}

void LayoutMgr::FindAndReplace() {
  // Each edit is a step of its own.
  Service<Editors>::Get().FindAndReplace(*model, [this] { TakeSnapshot(); });
}

bool LayoutMgr::OnCommand(unsigned id) {
  if (ModalLoop::IsRunning() || !OnUpdateCommand(id).enabled) return false;
  const auto held = HoldModel();
  switch (id) {
    case ID_ZOOM_IN: ChangeZoom(static_cast<std::int16_t>(zoom + 1)); break;
    case ID_ZOOM_OUT: ChangeZoom(static_cast<std::int16_t>(zoom - 1)); break;
    case ID_ZOOM_NORMAL: ChangeZoom(kNormalZoom); break;
    case ID_REFRESH: Invalidate(); break;
    case ID_COPY_METAFILE: CopyAsMetafile(); break;
    case ID_FILE_EXPORT: ExportPicture(); break;
    case ID_DELETE: DeleteSelection(); break;
    case ID_POINTER:
      EndToolDrag();
      model->DeselectAll();
      break;
    case ID_TOOL_STATE:
    case ID_TOOL_TRANSITION:
    case ID_TOOL_INITIAL_STATE:
    case ID_TOOL_FINAL_STATE:
    case ID_TOOL_NOTE:
    case ID_TOOL_LINE: ChooseTool(id); break;
    case ID_TOOL_DRAG_STARTED: BeginToolDrag(); break;
    case ID_EDIT_SELECT_ALL:
    case ID_EDIT_COPY:
    case ID_EDIT_CUT:
    case ID_EDIT_PASTE: RunSelectionCommand(id); break;
    case ID_EDIT_UNDO: Undo(); break;
    case ID_EDIT_REDO: Redo(); break;
    case ID_FILE_SAVE: GetDocument()->DoFileSave(); break;
    case ID_MODEL_PROPERTIES:
    case ID_OBJECT_PROPERTIES: EditModelProperties(); break;
    case ID_CODEGEN_PROPERTIES:
      Service<Generators>::Get().EditProperties(properties);
      TakeSnapshot();
      break;
    case ID_FIND_REPLACE: FindAndReplace(); break;
    case ID_FILE_PRINT_SETUP: OnFilePrintSetup(); break;
    case ID_FILE_PRINT:
    case ID_FILE_PRINT_DIRECT: OnFilePrint(id == ID_FILE_PRINT_DIRECT); break;
    case ID_FILE_PRINT_PREVIEW: OnFilePrintPreview(); break;
    case ID_GENERATE_CPP:
    case ID_GENERATE_C:
    case ID_GENERATE_CSHARP:
    case ID_GENERATE_JAVA:
    case ID_GENERATE_XML: GenerateFile(id); break;
    case ID_BRING_TO_FRONT:
    case ID_SEND_TO_BACK:
      model->OrderSelection(id == ID_BRING_TO_FRONT);
      TakeSnapshot();
      break;
    default: return false;
  }
  return true;
}

void LayoutMgr::ScrollHome() {
  OnScroll(ScrollBar::Vertical, ScrollCode::ToStart);
  OnScroll(ScrollBar::Horizontal, ScrollCode::ToStart);
}

bool LayoutMgr::OnKeyDown(VirtualKey key, unsigned /*flags*/) {
  if (IsBusy()) return false;
  const auto held = HoldModel();
  switch (key) {
    case VirtualKey::Escape:
      EndToolDrag();
      model->DeselectAll();
      break;
    case VirtualKey::Prior: OnScroll(ScrollBar::Vertical, ScrollCode::PageBack); break;
    case VirtualKey::Next: OnScroll(ScrollBar::Vertical, ScrollCode::PageForward); break;
    case VirtualKey::Home: ScrollHome(); break;
    case VirtualKey::Left: OnScroll(ScrollBar::Horizontal, ScrollCode::LineBack); break;
    case VirtualKey::Up: OnScroll(ScrollBar::Vertical, ScrollCode::LineBack); break;
    case VirtualKey::Right: OnScroll(ScrollBar::Horizontal, ScrollCode::LineForward); break;
    case VirtualKey::Down: OnScroll(ScrollBar::Vertical, ScrollCode::LineForward); break;
    case VirtualKey::Delete: DeleteSelection(); break;
    case VirtualKey::End:
    case VirtualKey::Other: return false;
  }
  return true;
}

bool LayoutMgr::OnClose() { return GetDocument() == nullptr || GetDocument()->SaveModified(); }
