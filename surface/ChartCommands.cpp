#include "surface/ChartCommands.h"

#include <algorithm>

#include "connectors/Rerouting.h"
#include "model/Collection.h"
#include "model/Editors.h"
#include "model/ModelMgr.h"
#include "model/MoveSettings.h"
#include "model/ObjectBrowser.h"
#include "model/SearchedChart.h"
#include "persistence/CDocument.h"
#include "platform/MessageBox.h"
#include "platform/Service.h"
#include "platform/WaitCursor.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "surface/Arrangement.h"
#include "surface/ChartExport.h"
#include "surface/ChartHistory.h"
#include "surface/ConnectCommands.h"
#include "surface/Generators.h"
#include "surface/LayoutMgr.h"
#include "surface/Pasting.h"
#include "surface/TidyUp.h"
#include "surface/ToolDrag.h"

namespace morvane {

namespace {

// When a command can be given.

CommandState Always(const LayoutMgr& /*chart*/, unsigned /*id*/) {
  return CommandState::Enabled(true);
}

CommandState IfZoomChanges(const LayoutMgr& chart, unsigned id) {
  switch (id) {
    case ID_ZOOM_IN: return CommandState::Enabled(chart.GetZoom() < LayoutMgr::kMaxZoom);
    case ID_ZOOM_OUT: return CommandState::Enabled(chart.GetZoom() > LayoutMgr::kMinZoom);
    default: return CommandState::Enabled(chart.GetZoom() != LayoutMgr::kNormalZoom);
  }
}

CommandState WhetherAtZoom(const LayoutMgr& chart, unsigned id) {
  return CommandState::Checked(id - ID_ZOOM_LEVEL == static_cast<unsigned>(chart.GetZoom()));
}

CommandState IfSelected(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(!chart.GetSelection().IsEmpty());
}

/// A message does not go without its transition.
CommandState IfDuplicable(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(
      std::ranges::any_of(chart.GetModel().SelectedShapes(),
                          [](const Shape* shape) { return shape->GetLayer() != LAYER_MESG; }));
}

CommandState IfArrangeable(const LayoutMgr& chart, unsigned id) {
  return CommandState::Enabled(Arrangement(chart.GetModel()).Can(id));
}

CommandState WhetherContentsMove(const LayoutMgr& /*chart*/, unsigned /*id*/) {
  return CommandState::Checked(MoveSettings::MovesContents());
}

CommandState IfRouteSelected(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(!chart.GetSelection().IsEmpty() &&
                               !SelectedRoutes(chart.GetModel()).empty());
}

CommandState IfAnyRoute(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(!AllRoutes(chart.GetModel()).empty());
}

CommandState IfAnyObject(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(!chart.GetModel().Objects().empty());
}

CommandState IfCopied(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(chart.GetModel().CanPaste());
}

CommandState IfUndoable(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(chart.GetHistory().CanUndo());
}

CommandState IfRedoable(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(chart.GetHistory().CanRedo());
}

CommandState IfTwoToConnect(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(CanConnect(chart));
}

CommandState IfConnectable(const LayoutMgr& chart, unsigned /*id*/) {
  return CommandState::Enabled(CanConnectTo(chart, Joint::None));
}

CommandState WhetherChosen(const LayoutMgr& chart, unsigned id) {
  return CommandState::Checked(chart.GetTools().Tool() == id);
}

// What a command does. One that may have changed the model ends with a snapshot.

void Save(LayoutMgr& chart, unsigned /*id*/) { chart.GetDocument()->DoFileSave(); }

void Print(LayoutMgr& chart, unsigned id) { chart.OnFilePrint(id == ID_FILE_PRINT_DIRECT); }

void PreviewPrint(LayoutMgr& chart, unsigned /*id*/) { chart.OnFilePrintPreview(); }

void SetUpPrint(LayoutMgr& chart, unsigned /*id*/) { chart.OnFilePrintSetup(); }

void Export(LayoutMgr& chart, unsigned /*id*/) { ExportPicture(chart); }

void Undo(LayoutMgr& chart, unsigned /*id*/) { chart.GetHistory().Undo(); }

void Redo(LayoutMgr& chart, unsigned /*id*/) { chart.GetHistory().Redo(); }

void Delete(LayoutMgr& chart, unsigned /*id*/) { chart.DeleteSelection(); }

void Order(LayoutMgr& chart, unsigned id) {
  chart.GetModel().OrderSelection(id == ID_BRING_TO_FRONT);
  chart.TakeSnapshot();
}

void LayRoutes(LayoutMgr& chart, unsigned id) {
  const WaitCursor wait;
  const ModelMgr& model = chart.GetModel();
  Reroute(model, id == ID_REROUTE ? SelectedRoutes(model) : AllRoutes(model));
  chart.TakeSnapshot();
}

void Cut(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  chart.GetModel().Cut();
  chart.GetPasting().BeginAnew();
  chart.TakeSnapshot();
}

void Copy(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  chart.GetModel().Copy();
  chart.GetPasting().BeginAnew();
}

void Paste(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  chart.GetPasting().Paste();
  chart.TakeSnapshot();
}

void Duplicate(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  chart.GetPasting().Duplicate();
  chart.TakeSnapshot();
}

void Arrange(LayoutMgr& chart, unsigned id) {
  const WaitCursor wait;
  Arrangement(chart.GetModel()).Do(id);
  chart.TakeSnapshot();
}

void Tidy(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  TidyUp(chart);
}

void MoveContents(LayoutMgr& /*chart*/, unsigned /*id*/) {
  MoveSettings::SetMovesContents(!MoveSettings::MovesContents());
}

void CopyPicture(LayoutMgr& chart, unsigned /*id*/) { CopyAsMetafile(chart); }

void SelectAll(LayoutMgr& chart, unsigned /*id*/) {
  const WaitCursor wait;
  chart.GetModel().SelectAll();
}

void ShowModelName(LayoutMgr& chart) {
  if (ObjectBrowser* tree = chart.GetObjectTree()) {
    tree->SetRootText(chart.GetProperties().ModelName);
  }
}

void FindAndReplace(LayoutMgr& chart, unsigned /*id*/) {
  SearchedChart searched{chart.GetModel(), chart.GetProperties()};
  // Each edit is a step of its own.
  searched.onChanged = [&chart] {
    ShowModelName(chart);
    chart.TakeSnapshot();
  };
  searched.reveal = [&chart](const std::vector<Shape*>& objects) {
    chart.Reveal(objects);
    return chart.PlaceOnScreen(*objects.front());
  };
  searched.editCodeProperties = [&chart] {
    return Service<Generators>::Get().EditProperties(chart.GetProperties());
  };
  Service<Editors>::Get().FindAndReplace(searched);
}

void EditModelProperties(LayoutMgr& chart, unsigned /*id*/) {
  Service<Editors>::Get().EditModelProperties(chart.GetProperties());
  ShowModelName(chart);
  chart.Invalidate();
  chart.TakeSnapshot();
}

void EditCodegenProperties(LayoutMgr& chart, unsigned /*id*/) {
  Service<Generators>::Get().EditProperties(chart.GetProperties());
  chart.TakeSnapshot();
}

void Point(LayoutMgr& chart, unsigned /*id*/) {
  chart.GetTools().EndToolDrag();
  chart.GetModel().DeselectAll();
}

void ChooseTool(LayoutMgr& chart, unsigned id) { chart.GetTools().Choose(id); }

void ConnectSelected(LayoutMgr& chart, unsigned /*id*/) { Connect(chart); }

void ConnectToTarget(LayoutMgr& chart, unsigned /*id*/) { ConnectTo(chart, Joint::None); }

void KeepTool(LayoutMgr& chart, unsigned /*id*/) { chart.GetTools().Keep(); }

void DragTool(LayoutMgr& chart, unsigned /*id*/) { chart.GetTools().BeginToolDrag(); }

void Refresh(LayoutMgr& chart, unsigned /*id*/) { chart.Invalidate(); }

void Zoom(LayoutMgr& chart, unsigned id) {
  const int zoom = chart.GetZoom();
  chart.ChangeZoom(id == ID_ZOOM_IN    ? zoom + 1
                   : id == ID_ZOOM_OUT ? zoom - 1
                                       : LayoutMgr::kNormalZoom);
}

void ZoomToLevel(LayoutMgr& chart, unsigned id) {
  chart.ChangeZoom(static_cast<int>(id - ID_ZOOM_LEVEL));
}

void ZoomToFit(LayoutMgr& chart, unsigned id) {
  chart.ZoomToFit(id == ID_ZOOM_FIT ? LayoutMgr::Shown::All : LayoutMgr::Shown::Selection);
}

/// A generator reads the chart's file. False if the user cancelled, or there is no file.
bool EnsureModelSaved(CDocument& document) {
  if (document.IsModified()) {
    if (ShowMessage(LoadText(IDS_SAVE_BEFORE_GENERATE), MB_OKCANCEL | MB_ICONHAND) !=
        MessageAnswer::Ok) {
      return false;
    }
    document.DoFileSave();
  }
  if (!document.GetPathName().empty()) return true;
  ShowMessage(LoadText(IDS_NOTHING_TO_GENERATE), MB_ICONHAND);
  return false;
}

void GenerateFile(LayoutMgr& chart, unsigned id) {
  if (EnsureModelSaved(*chart.GetDocument())) Service<Generators>::Get().Run(id, chart);
}

constexpr CommandRow<LayoutMgr> kRows[] = {
    {{ID_FILE_SAVE, "&Save", "Ctrl+S", "Save the active chart", "Save", "save"}, Always, Save},
    {{ID_FILE_PRINT, "&Print...", "Ctrl+P", "Print the active chart", "Print", "print"},
     Always,
     Print},
    {{ID_FILE_PRINT_DIRECT}, Always, Print},
    {{ID_FILE_PRINT_PREVIEW, "Print Pre&view", "", "Show the pages as they will be printed",
      "Print Preview"},
     Always,
     PreviewPrint},
    {{ID_FILE_PRINT_SETUP, "P&rint Setup...", "", "Change the printer and its options",
      "Print Setup"},
     Always,
     SetUpPrint},
    {{ID_FILE_EXPORT, "&Export...", "", "Write a picture of the active chart to a file", "Export"},
     Always,
     Export},

    {{ID_EDIT_UNDO, "&Undo", "Ctrl+Z Alt+Backspace", "Undo the last change", "Undo", "undo"},
     IfUndoable,
     Undo},
    {{ID_EDIT_REDO, "&Redo", "Ctrl+Y Ctrl+Shift+Z", "Redo the change that was undone last", "Redo",
      "redo"},
     IfRedoable,
     Redo},
    {{ID_DELETE, "Delete", "Ctrl+D", "Delete selected objects from the chart", "Delete", "delete"},
     IfSelected,
     Delete},
    {{ID_BRING_TO_FRONT, "&Bring to front", "", "Bring the selected objects in front of all others",
      "Bring to front", "front"},
     IfSelected,
     Order},
    {{ID_SEND_TO_BACK, "&Send to back", "", "Send the selected objects behind all others",
      "Send to back", "back"},
     IfSelected,
     Order},
    {{ID_REROUTE, "Re-r&oute", "", "Lay the selected transitions anew, around the states",
      "Re-route"},
     IfRouteSelected,
     LayRoutes},
    {{ID_REROUTE_ALL, "Re-r&oute", "", "Lay all transitions anew, around the states", "Re-route"},
     IfAnyRoute,
     LayRoutes},
    {{ID_TIDY_UP, "Tid&y up", "",
      "Place the states anew, those that are selected or all, and lay their transitions",
      "Tidy up"},
     IfAnyObject,
     Tidy},
    {{ID_EDIT_CUT, "Cu&t", "Ctrl+X Shift+Delete", "Move the selected objects to the clipboard",
      "Cut", "cut"},
     IfSelected,
     Cut},
    {{ID_EDIT_COPY, "&Copy", "Ctrl+C Ctrl+Insert", "Copy the selected objects to the clipboard",
      "Copy", "copy"},
     IfSelected,
     Copy},
    {{ID_EDIT_PASTE, "&Paste", "Ctrl+V Shift+Insert", "Insert the objects from the clipboard",
      "Paste", "paste"},
     IfCopied,
     Paste},
    {{ID_DUPLICATE, "Dup&licate", "Ctrl+Shift+D", "Put copies of the selected objects beside them",
      "Duplicate"},
     IfDuplicable,
     Duplicate},
    {{ID_MOVE_CONTENTS, "Move contents &with a state", "",
      "A state that is moved takes along what lies inside it", "Move contents with a state"},
     WhetherContentsMove,
     MoveContents},
    {{ID_ALIGN_LEFT, "Align &left", "",
      "Put the left edges of the selected objects in line with that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_ALIGN_CENTRE, "Align &centres", "",
      "Put the centres of the selected objects below that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_ALIGN_RIGHT, "Align &right", "",
      "Put the right edges of the selected objects in line with that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_ALIGN_TOP, "Align &top", "",
      "Put the top edges of the selected objects in line with that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_ALIGN_MIDDLE, "Align &middles", "",
      "Put the centres of the selected objects beside that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_ALIGN_BOTTOM, "Align &bottom", "",
      "Put the bottom edges of the selected objects in line with that of the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_DISTRIBUTE_ACROSS, "Distribute &across", "",
      "Make the gaps between the selected objects equal, from left to right"},
     IfArrangeable,
     Arrange},
    {{ID_DISTRIBUTE_DOWN, "Distribute &down", "",
      "Make the gaps between the selected objects equal, from top to bottom"},
     IfArrangeable,
     Arrange},
    {{ID_SAME_WIDTH, "Same &width", "",
      "Make the selected objects as wide as the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_SAME_HEIGHT, "Same &height", "",
      "Make the selected objects as high as the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_SAME_SIZE, "Same &size", "",
      "Make the selected objects as wide and as high as the last one selected"},
     IfArrangeable,
     Arrange},
    {{ID_COPY_METAFILE, "Copy As &Metafile", "Ctrl+M",
      "Copy the chart to the clipboard as a picture", "Copy As Metafile", "metafile"},
     Always,
     CopyPicture},
    {{ID_EDIT_SELECT_ALL, "Select &All", "Ctrl+A", "Select all objects of the chart", "Select All"},
     IfAnyObject,
     SelectAll},
    {{ID_FIND_REPLACE, "&Find / Replace", "Ctrl+F Space", "Find and replace a text in the chart",
      "Find / Replace", "find"},
     Always,
     FindAndReplace},
    {{ID_MODEL_PROPERTIES, "Model Propert&ies", "", "Show and change the properties of the model",
      "Model Properties", "modelproperties"},
     Always,
     EditModelProperties},

    {{ID_POINTER, "", "", "Select and move objects", "Pointer", "pointer"}, Always, Point},
    {{ID_TOOL_STATE, "&State", "", "Insert a state", "State", "state"}, WhetherChosen, ChooseTool},
    {{ID_TOOL_TRANSITION, "T&ransition", "", "Insert a transition", "Transition", "transition"},
     WhetherChosen,
     ChooseTool},
    {{ID_TOOL_INITIAL_STATE, "&Initial State", "", "Insert an initial state", "Initial State",
      "initialstate"},
     WhetherChosen,
     ChooseTool},
    {{ID_TOOL_FINAL_STATE, "&Final State", "", "Insert a final state", "Final State", "finalstate"},
     WhetherChosen,
     ChooseTool},
    {{ID_TOOL_NOTE, "&Note", "", "Insert a note", "Note", "note"}, WhetherChosen, ChooseTool},
    {{ID_TOOL_LINE, "&Line", "", "Insert a line", "Line", "line"}, WhetherChosen, ChooseTool},
    {{ID_CONNECT, "&Connect", "Ctrl+L", "Connect the two selected objects", "Connect"},
     IfTwoToConnect,
     ConnectSelected},
    {{ID_CONNECT_TO, "Connect t&o...", "Ctrl+T", "Connect the selected object to another one",
      "Connect to"},
     IfConnectable,
     ConnectToTarget},
    {{ID_TOOL_DRAG_STARTED}, Always, DragTool},
    {{ID_TOOL_KEEP}, Always, KeepTool},

    {{ID_REFRESH, "&Refresh", "F5", "Paint the chart anew", "Refresh", "refresh"}, Always, Refresh},
    {{ID_ZOOM_IN, "Zoom &In", "F2 Ctrl++ Ctrl+=", "Zoom In", "Zoom In", "zoomin"},
     IfZoomChanges,
     Zoom},
    {{ID_ZOOM_NORMAL, "Zoom &Normal", "F3 Ctrl+0", "Show the chart at its normal size",
      "Zoom Normal", "zoomnormal"},
     IfZoomChanges,
     Zoom},
    {{ID_ZOOM_OUT, "Zoom &Out", "F4 Ctrl+-", "Zoom Out", "Zoom Out", "zoomout"},
     IfZoomChanges,
     Zoom},

    {{ID_ZOOM_FIT, "Zoom to &Fit", "Shift+F3", "Show all objects of the chart", "Zoom to Fit"},
     IfAnyObject,
     ZoomToFit},
    {{ID_ZOOM_SELECTION, "Zoom to Se&lection", "Shift+F2", "Show the selected objects",
      "Zoom to Selection"},
     IfSelected,
     ZoomToFit},
    {{ID_ZOOM_LEVEL, "", "", "", "", "", LayoutMgr::kMaxZoom + 1}, WhetherAtZoom, ZoomToLevel},

    {{ID_CODEGEN_PROPERTIES, "&Properties", "", "Show and change the properties of code generation",
      "CodeGen Properties", "codegenproperties"},
     Always,
     EditCodegenProperties},
    {{ID_GENERATE_CPP, "Generate C++ File", "", "Generate a C++ file from the chart",
      "Generate C++ File"},
     Always,
     GenerateFile},
    {{ID_GENERATE_C, "Generate C File", "", "Generate a C file from the chart", "Generate C File"},
     Always,
     GenerateFile},
    {{ID_GENERATE_CSHARP, "Generate C# File", "", "Generate a C# file from the chart",
      "Generate C# File"},
     Always,
     GenerateFile},
    {{ID_GENERATE_JAVA, "Generate Java File", "", "Generate a Java file from the chart",
      "Generate Java File"},
     Always,
     GenerateFile},
    {{ID_GENERATE_XML, "Generate XML File", "", "Generate an XML file from the chart",
      "Generate XML File"},
     Always,
     GenerateFile},
};

}  // namespace

const CommandTable<LayoutMgr>& ChartCommands() {
  static constexpr CommandTable<LayoutMgr> table(kRows);
  return table;
}

}  // namespace morvane
