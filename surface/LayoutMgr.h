#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drawing/DrawingTools.h"
#include "model/ChartView.h"
#include "model/ModelProperties.h"
#include "model/Shape.h"
#include "persistence/ChartText.h"
#include "platform/SharedText.h"
#include "surface/ChartBrowser.h"
#include "surface/HiddenWindow.h"

namespace morvane {

class ChartHistory;
class ChartLook;
class ChartReading;
class ChartWatcher;
class Collection;
class ConnectionDrag;
class KeyboardWalk;
class InPlaceEdit;
class ObjectMarks;
class ModelMgr;
class ModelStream;
class Nudge;
class Pasting;
class PrintMapping;
class RunMarks;
class ToolDrag;
class ViewGeometry;
class WatchedView;

/// The view of a chart. It owns the model and all else that belongs to one open chart. What has a
/// job of its own there is a member with a class of its own; the view joins them.
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
  ChartBrowser* GetObjectTree() const override { return objectTree; }
  void SetObjectTree(ChartBrowser* tree) { objectTree = tree; }
  ChartHistory& GetHistory() const { return *history; }
  ToolDrag& GetTools() const { return *tools; }
  ObjectMarks& GetMarks() const { return *marks; }
  RunMarks& GetRunMarks() const { return *runMarks; }
  /// From now on the chart stays as it is, until null is set; see `ChartWatcher`. The zoom and what
  /// is selected are then what they were before.
  void SetWatcher(ChartWatcher* other);
  ChartWatcher* GetWatcher() const { return watcher; }
  /// Hears of each text that the chart takes on; null for nobody.
  void SetTextListener(std::function<void(const SharedText&)> hears) {
    textListener = std::move(hears);
  }
  /// The chart has another text now.
  void TellText(const SharedText& text) const {
    if (textListener) textListener(text);
  }
  KeyboardWalk& GetWalk() const { return *walk; }
  const ViewGeometry& GetGeometry() const { return *geometry; }
  Pasting& GetPasting() const { return *pasting; }
  const PrintMapping& GetPrintMapping() const { return *printMapping; }
  const CFont& GetBoldFont() const override;
  COLORREF GetTextColor() const override;
  void DrawChartText(CDC& dc, std::string_view text, const RECT& area) const override;
  SIZE MeasureChartText(std::string_view text, std::int32_t width, Letters letters) const override;

  Shape* FindShapeNear(const POINT& client, Layer layer) const;
  /// The lower right corner of all objects, model units.
  void GetChartExtent(std::int32_t& right, std::int32_t& bottom) const;
  void BringToFront(Shape* shape);
  /// Selects objects of the model, and no others, and scrolls to the first one.
  void Reveal(const std::vector<Shape*>& shapes);
  /// Scrolls no farther than it takes to show a rectangle, absolute model units.
  void KeepInSight(const RECT& model);
  /// Scrolls so far that the whole shape shows, if it doesn't.
  void ScrollIntoView(const Shape& shape);
  /// Where on the screen the part of an object is that is in sight.
  RECT PlaceOnScreen(const Shape& shape) const;
  /// Deletes the selected objects, if the user agrees.
  void DeleteSelection();
  ConnectionPress BeginConnection(unsigned flags, POINT press) override;
  bool EditInPlace(Shape& shape) override;
  void ShowObjectMenu(Shape* shape, POINT screen) override;
  /// Opens the chart's own menu at a screen point and carries out what is chosen.
  void ShowChartMenu(POINT screen);
  /// Shows the chart at another zoom, which is no step to undo; out of range it does nothing. What
  /// lies in the middle of the window, or at a client point, stays there.
  void ChangeZoom(int value);
  void ChangeZoom(int value, POINT client);
  /// The same for any zoom that `ZoomToFit` comes to, while somebody watches the chart.
  void ShowAtZoom(int value);
  /// Shows all objects, or those that are selected, as large as they fit into the window. For that
  /// the view goes below the least zoom that a chart can have, which keeps the one it has then.
  enum class Shown { All, Selection };
  void ZoomToFit(Shown shown);
  /// The zoom that is a part of the model text.
  std::int16_t GetStoredZoom() const { return storedZoom; }
  /// Sets sizes and position of the scroll bars for the present zoom.
  void ApplyZoom();
  /// A uniform scale from logical units to device pixels; the origin stays.
  void PrepareMapping(CDC& dc) const;

  /// Ends an operation that may have changed the model: puts the present model text on the undo
  /// history and shows it to the document; a text that hasn't changed adds nothing. Then the
  /// messages come that the operation gave rise to, so that it has to be the last thing done.
  void TakeSnapshot();
  void TellLater(std::string text) override;
  /// Shows the chart of a model text in the place of the present one, which is no step by itself.
  /// False with the reason, and nothing changed, if the text can't be read.
  bool Restore(const std::string& text, std::string& reason);
  bool ReplaceText(const std::string& text, std::string& reason) override;
  TextEncoding FoundEncoding() override;
  void ConvertToUtf8() override;
  /// Puts the texts of an edited chart into the one encoding that it had.
  EncodingChange UnifyEncoding(TextEncoding former);
  SharedText SnapshotText() const override;
  std::string ModelText() const override;
  std::string EmptyText() const override { return LayoutMgr().ModelText(); }
  void Write(ModelStream& stream) const;
  void Read(ModelStream& stream) override;
  /// How large a chart stands that no window shows.
  enum class Size { Stored, Normal };
  /// Places a chart that was read with no window, for conversions and pictures.
  void PlaceWithoutWindow(Size size);

  void OnInitialUpdate() override;
  void OnDraw(CDC& dc) override;
  bool OnScrollBy(SIZE distance) override;
  bool OnPreparePrinting(CPrintInfo& info) override;
  void OnBeginPrinting(CDC& dc, CPrintInfo& info) override;
  void OnPrint(CDC& dc, CPrintInfo& info) override;
  void OnFilePrintSetup() override;
  void OnLButtonDown(unsigned flags, POINT p) override;
  void OnLButtonUp(unsigned flags, POINT p) override;
  void OnLButtonDblClk(unsigned flags, POINT p) override;
  void OnMouseMove(unsigned flags, POINT p) override;
  void OnMouseLeave() override;
  void OnDeactivate() override;
  void OnTextBoxLeft(bool keep) override;
  void FinishTyping() override;
  void OnContextMenu(POINT screen) override;
  void OnMenuKey() override;
  void OnSetCursor() override;
  bool OnKeyDown(VirtualKey key, unsigned flags) override;
  std::string TipAt(POINT client) const override;
  bool OnCommand(unsigned id) override;
  CommandState OnUpdateCommand(unsigned id) override;
  void OnZoom(int steps, POINT client) override;
  std::string GetTitle() const override;
  bool OnClose() override;
  ReadableParts* Parts() override;
  void OnSelectionChanged() override { TellPartsChanged(); }

  /// Nothing may change or go from under a gesture, a box, a menu or a dialog, nor may the chart
  /// scroll away from the points of a gesture: what comes from the mouse and the keys passes by.
  bool IsBusy() const;

 protected:
  int ScrollStep() const override { return zoom; }

 private:
  /// A chart as it was read.
  struct ReadChart {
    std::int16_t zoom;
    std::unique_ptr<ModelMgr> model;
    ModelProperties properties;
  };

  void MakeRoom();
  /// Objects have changed, for a screen reader.
  void TellReaders();
  /// Places what was read, if anything was, and only then shows it in the place of what there is.
  void ShowRead();
  bool WalkByKey(VirtualKey key, unsigned flags);
  /// Opens what edits the selected object: its text where it stands, or a dialog.
  bool EditSelection(unsigned flags);
  /// What is under the pointer has moved away, or something else has come.
  void RefreshHover();
  bool WatchedKey(VirtualKey key, unsigned flags);
  void ShowZoom(int value, POINT client);

  std::int16_t storedZoom = kNormalZoom;
  HiddenWindow menuWindow{this};  ///< takes the commands of the objects' menus
  ModelProperties properties;
  std::shared_ptr<ModelMgr> model;       ///< never null, all of it placed
  std::unique_ptr<ReadChart> readChart;  ///< what waits to be placed; mostly null
  std::vector<std::string> notices;      ///< messages that wait for the end of an operation
  std::unique_ptr<ChartLook> look;
  std::unique_ptr<ViewGeometry> geometry;
  std::unique_ptr<ToolDrag> tools;
  std::unique_ptr<KeyboardWalk> walk;
  std::unique_ptr<ChartReading> reading;
  std::unique_ptr<ConnectionDrag> connections;
  std::unique_ptr<Nudge> nudge;
  std::unique_ptr<Pasting> pasting;
  std::unique_ptr<InPlaceEdit> inPlace;
  std::unique_ptr<ObjectMarks> marks;
  std::unique_ptr<RunMarks> runMarks;
  std::unique_ptr<WatchedView> watchedView;  ///< what the view was before; null without a watcher
  ChartWatcher* watcher = nullptr;           ///< not owned
  std::function<void(const SharedText&)> textListener;
  std::unique_ptr<PrintMapping> printMapping;
  std::unique_ptr<ChartHistory> history;
  ChartBrowser* objectTree = nullptr;
};

ModelStream& operator<<(ModelStream& stream, const LayoutMgr& view);
ModelStream& operator>>(ModelStream& stream, LayoutMgr& view);

}  // namespace morvane
