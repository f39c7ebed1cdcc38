#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "drawing/Geometry.h"
#include "model/AnchorOffer.h"
#include "model/Collection.h"
#include "model/Factory.h"
#include "model/ModelData.h"
#include "model/Shape.h"
#include "model/ShapeRegistry.h"

namespace morvane {

class CDC;
class CWnd;
class ChartView;
class GroupMove;
class ModelClipboard;
class ObjectBrowser;

/// The model of one open chart: it owns the objects, knows which are selected, gives out ids and
/// answers what lies where. Client points and rectangles are device pixels.
class ModelMgr : public ShapeRegistry {
 public:
  /// An empty model of a view, whose objects the factory makes; neither is owned.
  ModelMgr(ChartView* view, const Factory& factory);
  ~ModelMgr() override;
  ModelMgr(const ModelMgr&) = delete;
  ModelMgr& operator=(const ModelMgr&) = delete;

  /// Attaches every object that was read, while nobody can see the model yet. The view calls it
  /// once for each model that it reads.
  void PlaceAll();
  /// The view shows this model from now on, and so does its browser.
  void Show();
  /// The view shows another model from now on; this one may live on under an operation.
  void Hide();
  bool IsShown() const { return shown; }
  /// Attaches objects layer by layer, so that what is looked up by id stands in the registry first.
  /// Only then do they go into the list of a model that is shown.
  void Place(const std::vector<Shape*>& list);

  void AddShape(Shape* shape, std::int32_t id) override;
  void RemoveShape(Shape* shape) override;

  /// Takes a new object over and attaches it.
  void Adopt(std::unique_ptr<Shape> made);
  ChartView* GetView() const { return view; }

  /// The top object under a client point, or null.
  Shape* ObjectAt(const POINT& client) const;
  /// The top object under or near a client point in one layer, or in all with `LAYER_ALL`.
  Shape* ObjectNear(const POINT& client, Layer layer) const;
  /// Gives what of a shape a connector of some kind may hang on; null if nothing.
  using AnchorOwner = std::function<Connectable*(Shape& shape)>;
  /// The anchor that is meant at a client point: the nearest one of the shapes of a layer, or of
  /// all, by whose border the point lies, and which no other shape covers there.
  AnchorOffer AnchorNear(const POINT& client, Layer layer, const AnchorOwner& owner) const;
  /// The objects wholly inside a client rectangle, in list order.
  std::vector<Shape*> FindShapesInRect(const RECT& client) const;
  /// The lower right corner of all objects, model units, not below 0.
  void GetChartExtent(std::int32_t& right, std::int32_t& bottom) const;
  /// Paints what the context shows as on paper, from the lowest layer to the highest; of that only
  /// what is selected if `selectedOnly`.
  void DrawAll(CDC* dc, bool selectedOnly = false) const;
  /// The same as the window shows it, with the marks of the shapes.
  void DrawOnScreen(CDC& dc) const;

  /// The object is one of this model, and still lives.
  bool Holds(const Shape* shape) const;
  Collection& GetSelection() { return selection; }
  /// What is selected, in the order in which it came into the selection.
  std::vector<Shape*> SelectedShapes() const;
  /// The box around it, absolute model units; empty where nothing is selected.
  RECT SelectionBounds() const;
  const std::vector<Shape*>& Objects() const { return data.Objects(); }
  /// The shape is part of the move that runs. Without one, what is selected moves.
  bool MovesAlong(const Shape* shape) const;
  /// Null when it is over.
  void SetRunningMove(const GroupMove* move) { runningMove = move; }
  void DeselectAll();
  void SelectOnly(Shape* shape) { Select({shape}); }
  /// Selects these objects and no others.
  void Select(const std::vector<Shape*>& shapes);
  void SelectAll();
  void BringToFront(Shape* shape);
  void SendToBack(Shape* shape);
  /// Brings each selected object to the front, or sends it to the back, of its layer.
  void OrderSelection(bool toFront);
  /// Deletes the selected objects, with a question first if `prompt`.
  void DeleteSelected(bool prompt);

  // The mouse, in device pixels. True: the model may have changed.
  bool OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y);
  bool OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y);
  /// False if no object lies under the pointer or it leaves the cursor to the view.
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message);
  /// Opens the menu of the object under a client point; false if there is none.
  bool OnContextMenu(CWnd* window, std::int32_t x, std::int32_t y);
  /// Opens the menu of an object at a screen point.
  bool ShowObjectMenu(Shape* shape, std::int32_t screenX, std::int32_t screenY);

  void Copy();
  void Cut();
  bool CanPaste() const;
  /// The records of the selected objects, in the order of the model text, which is that of
  /// painting.
  std::string SelectionText() const;
  /// What the clipboard holds of records; nothing if it can't be had, which the user is told.
  std::optional<std::string> CopiedText() const;
  /// Adds copies of records, at the places that they name and in front of what there is, and
  /// selects them. False, with a message and nothing changed, where none can stand alone or be
  /// read.
  bool Paste(const std::string& records);

  void Write(ModelStream& stream) const;
  /// Reads the data section, with the search for its first line. The objects stay unattached.
  void Read(ModelStream& stream);

 private:
  ObjectBrowser* Browser() const;
  std::vector<Shape*> ShapesOn(const CDC& dc, bool selectedOnly) const;
  bool TrackRubberBand(std::int32_t x, std::int32_t y);
  /// Reads records into `pasteList`.
  void ReadPasted(const std::string& text);
  /// Gives the objects of `pasteList` new ids and drops those that can't stand alone.
  void MendIds();
  void AdoptPasted();

  Collection selection;
  const GroupMove* runningMove = nullptr;
  ChartView* view;
  bool shown = false;  ///< window and browser hear of its objects
  std::unique_ptr<ModelClipboard> clipboard;
  const Factory& factory;
  ModelData data{factory};
  std::vector<std::unique_ptr<Shape>> pasteList;
};

}  // namespace morvane
