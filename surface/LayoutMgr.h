#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "codegen/ModelProperties.h"
#include "connectors/AnchorMarker.h"
#include "model/AnchorKey.h"
#include "model/Shape.h"
#include "model/ShapeGeometry.h"
#include "platform/CScrollView.h"
#include "platform/DrawingTools.h"
#include "platform/SharedText.h"

class Collection;
class Connectable;
class ModelMgr;
class ModelStream;
class ObjectBrowser;
class UndoHistory;
enum class GeneratorKind;

/// The view of a chart. It owns the model and all else that belongs to one open chart, and turns
/// between model units (stored), logical units (painted, six to a model unit) and device pixels
/// (the mouse, `zoom` to a model unit).
class LayoutMgr : public CScrollView {
 public:
  static constexpr std::int16_t kMinZoom = 2;
  static constexpr std::int16_t kMaxZoom = 13;
  static constexpr std::int16_t kNormalZoom = 6;
  static constexpr std::int32_t kLogicalPerModel = 6;
  static constexpr SIZE kChartSize{1500, 1500};  ///< model units

  LayoutMgr();
  ~LayoutMgr() override;

  // Conversions. The point and rectangle forms treat each coordinate alone.
  std::int32_t ToLogical(std::int32_t model) const { return MulSat(model, kLogicalPerModel); }
  std::int32_t ToDevice(std::int32_t model) const { return MulSat(model, zoom); }
  std::int32_t ToModel(std::int32_t device) const {
    return RoundHalfAway(static_cast<double>(device) / zoom);
  }
  POINT ToLogical(POINT p) const { return {ToLogical(p.x), ToLogical(p.y)}; }
  POINT ToDevice(POINT p) const { return {ToDevice(p.x), ToDevice(p.y)}; }
  POINT ToModel(POINT p) const { return {ToModel(p.x), ToModel(p.y)}; }
  RECT ToLogical(const RECT& r) const;
  RECT ToDevice(const RECT& r) const;
  RECT ToModel(const RECT& r) const;
  /// Adds or subtracts the scroll position, in model units.
  POINT AddScroll(POINT p) const { return p + ScrollInModel(); }
  POINT SubScroll(POINT p) const { return p - ScrollInModel(); }
  RECT AddScroll(const RECT& r) const { return r + ScrollInModel(); }
  RECT SubScroll(const RECT& r) const { return r - ScrollInModel(); }
  /// Device pixels of an absolute model point, and back.
  POINT ToClient(POINT model) const { return ToDevice(SubScroll(model)); }
  RECT ToClient(const RECT& model) const { return ToDevice(SubScroll(model)); }
  POINT ToAbsolute(POINT client) const { return AddScroll(ToModel(client)); }

  std::int16_t GetZoom() const { return zoom; }
  Collection& GetSelection() const;
  /// The model that is shown. All of its objects are placed, always.
  ModelMgr& GetModel() const { return *model; }
  /// Keeps the present model alive for an operation on its objects that waits for the user, should
  /// the view get another one meanwhile.
  std::shared_ptr<ModelMgr> HoldModel() const { return model; }
  ModelProperties& GetProperties() { return properties; }
  /// Null for a chart that no browser follows.
  ObjectBrowser* GetObjectTree() const { return objectTree; }
  void SetObjectTree(ObjectBrowser* tree) { objectTree = tree; }
  /// Tells the browser, if there is one, that an object shows differently now.
  void UpdateNodes(Shape* shape);
  const CFont& GetFont() const { return font; }
  const CFont& GetBoldFont() const { return boldFont; }
  COLORREF GetTextColor() const { return textColor; }
  /// Sets a text in the chart's font and colour into a rectangle in logical units, broken at words
  /// and cut off at the rectangle.
  void DrawChartText(CDC& dc, std::string_view text, const RECT& area) const;
  bool IsGridShown() const { return showGrid; }
  bool IsPrintedToFit() const { return printToFit != 0; }
  int GetPagesAcross() const { return pagesAcross; }
  int GetPagesDown() const { return pagesDown; }

  Shape* FindShapeNear(const POINT& client, Layer layer) const;
  /// Asks for a repaint of rectangles in device pixels.
  void InvalidateModelRect(const RECT& device) { InvalidateRect(device); }
  void InvalidateModelRect(const RECT& first, const RECT& second);
  /// The lower right corner of all objects, model units.
  void GetChartExtent(std::int32_t& right, std::int32_t& bottom) const;
  void BringToFront(Shape* shape);
  /// The anchor of a shape that answers at a client point.
  bool FindAnchorAt(const Connectable& shape, POINT client, AnchorKey& key) const;
  /// The pointer is on an anchor where a connection can start.
  bool IsOverAnchor() const { return overAnchor; }
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
  /// Notes a message that came up while the model was changing; it is shown, once, when the
  /// operation is over and the model whole.
  void TellLater(std::string text);
  /// Shows another whole model text, as one step that can be undone. False, with nothing changed,
  /// when the text can't be read; `reason` then says why, for the user.
  bool ReplaceText(const std::string& text, std::string& reason);
  /// The text of the present snapshot; null before the first showing.
  SharedText SnapshotText() const;
  /// The whole model text.
  std::string ModelText() const;
  void Write(ModelStream& stream) const;
  /// Reads a whole text. What was read waits, unattached and out of everybody's reach, until it is
  /// placed and shown; the view shows what it showed. Throws a text for the user.
  void Read(ModelStream& stream);
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
  POINT ScrollInModel() const { return ToModel(GetScrollPosition()); }
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
  void GenerateFile(GeneratorKind kind);
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
  std::int16_t zoom = kNormalZoom;
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
