#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "connectors/AnchorMarker.h"
#include "drawing/DrawingTools.h"
#include "model/ChartView.h"
#include "model/ModelProperties.h"
#include "model/Shape.h"
#include "persistence/ChartText.h"
#include "platform/SharedText.h"
#include "surface/HiddenWindow.h"

class Collection;
class ModelMgr;
class ModelStream;
class ObjectBrowser;
class UndoHistory;

/// The view of a chart. It owns the model and all else that belongs to one open chart.
class LayoutMgr : public ChartView, public ChartText {
 public:
  LayoutMgr();
  ~LayoutMgr() override;

  Collection& GetSelection() const override;
  /// The model that is shown. All of its objects are placed, always.
  ModelMgr& GetModel() const { return *model; }
  /// Keeps the present model alive for an operation on its objects that waits for the user, should
  /// the view get another one meanwhile.
  std::shared_ptr<ModelMgr> HoldModel() const { return model; }
  ModelProperties& GetProperties() { return properties; }
  ObjectBrowser* GetObjectTree() const override { return objectTree; }
  void SetObjectTree(ObjectBrowser* tree) { objectTree = tree; }
  const CFont& GetFont() const { return font; }
  const CFont& GetBoldFont() const override { return boldFont; }
  COLORREF GetTextColor() const override { return textColor; }
  void DrawChartText(CDC& dc, std::string_view text, const RECT& area) const override;
  bool IsGridShown() const { return showGrid; }
  bool IsPrintedToFit() const { return printToFit != 0; }
  int GetPagesAcross() const { return pagesAcross; }
  int GetPagesDown() const { return pagesDown; }

  Shape* FindShapeNear(const POINT& client, Layer layer) const;
  /// The lower right corner of all objects, model units.
  void GetChartExtent(std::int32_t& right, std::int32_t& bottom) const;
  void BringToFront(Shape* shape);
  bool IsOverAnchor() const override { return overAnchor; }
  bool BeginConnection(POINT press) override;
  void ShowObjectMenu(Shape* shape, POINT screen) override;
  /// The callback while a connection is drawn: `context` is the view; the point is in device pixels
  /// and jumps to an anchor where the connection can end.
  static void TrackAnchorTarget(POINT& client, void* context);
  /// The command of the tool that is chosen; 0 for none.
  unsigned GetTool() const { return tool; }
  /// Opens the chart's own menu at a screen point and carries out what is chosen.
  void ShowChartMenu(POINT screen);
  /// Sets sizes and position of the scroll bars for a new zoom.
  void ApplyZoom();
  /// A uniform scale from logical units to device pixels; the origin stays.
  void PrepareMapping(CDC& dc) const;

  /// Ends an operation that may have changed the model: puts the present model text on the undo
  /// history and shows it to the document; a text that hasn't changed adds nothing. Then the
  /// messages come that the operation gave rise to, so that it has to be the last thing done.
  void TakeSnapshot();
  void TellLater(std::string text) override;
  bool ReplaceText(const std::string& text, std::string& reason) override;
  SharedText SnapshotText() const override;
  std::string ModelText() const override;
  std::string EmptyText() const override { return LayoutMgr().ModelText(); }
  void Write(ModelStream& stream) const;
  void Read(ModelStream& stream) override;
  /// Places a chart that was read with no window, for conversions and pictures. It stands at
  /// normal size if `normalSize`, else at its stored zoom.
  void PlaceWithoutWindow(bool normalSize);

  void OnInitialUpdate() override;
  void OnDraw(CDC& dc) override;
  bool OnScrollBy(SIZE distance) override;
  bool OnPreparePrinting(CPrintInfo& info) override;
  void OnBeginPrinting(CDC& dc, CPrintInfo& info) override;
  void OnPrint(CDC& dc, CPrintInfo& info) override;
  void OnEndPrinting(CDC& dc, CPrintInfo& info) override;
  void OnFilePrintSetup() override;
  void OnLButtonDown(unsigned flags, POINT p) override;
  void OnLButtonUp(unsigned flags, POINT p) override;
  void OnLButtonDblClk(unsigned flags, POINT p) override;
  void OnMouseMove(unsigned flags, POINT p) override;
  void OnMouseLeave() override;
  void OnContextMenu(POINT screen) override;
  void OnSetCursor() override;
  bool OnKeyDown(VirtualKey key, unsigned flags) override;
  bool OnCommand(unsigned id) override;
  CommandState OnUpdateCommand(unsigned id) override;
  bool OnClose() override;

 protected:
  int ScrollStep() const override { return zoom; }

 private:
  /// A chart as it was read.
  struct ReadChart {
    std::int16_t zoom;
    std::unique_ptr<ModelMgr> model;
    ModelProperties properties;
  };

  /// Nothing may change or go from under a gesture, nor may the chart scroll away from its points.
  bool IsGestureRunning() const { return HasCapture() && !toolDragging; }
  /// Nor from under a box, a menu or a dialog: what comes from the mouse and the keys passes by.
  bool IsBusy() const;
  void MakeFonts();
  void DrawGrid(CDC& dc) const;
  void ChangeZoom(std::int16_t value);
  /// Places what was read, if anything was, and only then shows it in the place of what there is.
  void ShowRead();
  void KeepSnapshot();
  void ShowNotices();
  bool Restore(const std::string& text, std::string& reason);
  bool ShowSnapshot(const SharedText& text);
  void TellDocument(const SharedText& text);
  void KeepZoom();
  void DeleteSelection();
  void RunSelectionCommand(unsigned id);
  void CopyAsMetafile();
  void ExportPicture();
  std::string ExportSuggestion(std::string_view extension) const;
  void ScrollHome();
  void ShowHover(POINT client);
  void HideHover();
  void ChooseTool(unsigned id);
  void BeginToolDrag();
  void MoveTool(POINT client);
  void EndToolDrag();
  void InsertTool(POINT client);
  bool IsEnabled(unsigned id) const;
  void EditModelProperties();
  void FindAndReplace();
  void SetPrintMapping(CDC& dc) const;
  void GenerateFile(unsigned command);
  bool EnsureModelSaved();
  void Undo();
  void Redo();

  unsigned tool = 0;
  bool toolDragging = false;  ///< the picture of the tool follows the pointer
  bool overAnchor = false;
  AnchorMarker sourceMark;  ///< the anchor where a connection can start
  AnchorMarker targetMark;  ///< the anchor where the connection being drawn would end
  CFont font;
  CFont boldFont;
  COLORREF textColor = 0;
  HiddenWindow menuWindow{this};  ///< takes the commands of the objects' menus
  ModelProperties properties;
  std::shared_ptr<ModelMgr> model;       ///< never null, all of it placed
  std::unique_ptr<ReadChart> readChart;  ///< what waits to be placed; mostly null
  std::vector<std::string> notices;      ///< messages that wait for the end of an operation
  bool showGrid = true;
  SIZE printWindowExt;    ///< of the print mapping, logical units
  SIZE printViewportExt;  ///< of the print mapping, device pixels of the printer
  int pagesAcross = 1;
  int pagesDown = 1;
  std::int32_t printToFit = 0;  ///< the whole chart goes on one page; not stored
  std::unique_ptr<UndoHistory> undoHistory;
  std::int16_t snapshotZoom = kNormalZoom;  ///< of the present snapshot
  ObjectBrowser* objectTree = nullptr;
};

ModelStream& operator<<(ModelStream& stream, const LayoutMgr& view);
ModelStream& operator>>(ModelStream& stream, LayoutMgr& view);
