#pragma once

#include <map>
#include <optional>
#include <string>

#include "drawing/Geometry.h"
#include "model/Collectable.h"
#include "model/Object.h"

namespace morvane {

class CDC;
class CWnd;
class ChartView;
class GroupMove;
struct InPlaceField;
class ModelMgr;

/// Drawing layers. A higher one paints over a lower one.
enum Layer : std::int16_t {
  LAYER_ALL = 0,  ///< for a search only
  LAYER_STATE = 10,
  LAYER_MESG = 20,
  LAYER_RESERVED = 30,
  LAYER_TRANSITION = 40,
  LAYER_NOTE = 50
};

/// Anything that can stand on a chart. Its destructor is the one way out of a model: it takes the
/// shape out of the selection, the registry, the object browser and the owning list.
class Shape : public Object, public Collectable {
 public:
  /// Old ids to new ones, for a paste.
  using IdMap = std::map<std::int32_t, std::int32_t>;

  Shape() = default;
  Shape(std::int32_t id, ChartView* view, Layer layer);
  ~Shape() override;

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;

  /// Paints the shape as on paper, in logical units.
  virtual void Draw(CDC* dc) = 0;
  /// Paints the shape as its window shows it, marks included, on a context in logical units.
  virtual void DrawOnScreen(CDC& dc);
  /// Paints what the window alone shows of the shape, handles and anchors, on a context in device
  /// pixels of the client area. It lies directly on the shape, under whatever lies in front of it.
  virtual void DrawMarks(CDC& /*window*/) {}
  /// The lower right corner, model units.
  virtual void GetExtent(std::int32_t& right, std::int32_t& bottom) const = 0;
  /// The shape lies under a point, device pixels of the client area.
  virtual bool HitTest(const POINT& client) const = 0;
  /// The shape lies under or near a point, absolute model units.
  virtual bool HitTestNear(const POINT& model) const = 0;
  /// The whole shape lies in a rectangle, absolute model units.
  virtual bool IsInsideRect(const RECT& model) const = 0;
  /// Asks for a repaint of the shape's area.
  virtual void Invalidate() = 0;
  /// The type's keyword in the model text.
  virtual const std::string& GetTypeName() const = 0;
  /// The box around the shape, absolute model units.
  virtual RECT GetBounds() const = 0;
  /// The box that stays on the chart when the shape moves: its left and top don't get below 0.
  virtual RECT GetMoveBounds() const { return GetBounds(); }
  /// The shape is to move: adds what it takes along.
  virtual void AddCompanions(GroupMove& /*move*/) {}
  /// The shape is a frame around others, which can go along with it.
  virtual bool HoldsContents() const { return false; }
  /// Lying within what moves the shape goes along by itself. False for one that is only pulled, as
  /// what hangs on something that stays.
  virtual bool GoesWith(const GroupMove& /*move*/) const { return true; }
  /// Takes a new id, and new references, during a paste. False: drop this object.
  virtual bool RemapIds(IdMap& map);
  /// A command of the shape's context menu. The shape may delete itself.
  virtual void OnCommand(unsigned id);
  /// Mouse events, device pixels of the client area.
  virtual void OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y);
  virtual void OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y);
  /// A press with the control key is a gesture of the shape, and draws no rubber band.
  virtual bool TakesPressWithControl() const { return false; }
  /// A press here, at a client point under which the shape lies, may start a connection of a state
  /// whose border runs there instead of a gesture of the shape.
  virtual bool YieldsToConnection(unsigned /*flags*/, POINT /*client*/) { return false; }
  /// Sets the cursor over the shape; false leaves it to the view.
  virtual bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message);
  /// The text that the user edits where it stands on the chart, if there is one.
  virtual std::optional<InPlaceField> FieldInPlace() const;
  /// Another text was typed there.
  virtual void TakeInPlace(const std::string& /*typed*/) {}
  /// The shape has got a view and a manager: resolve references, make helpers.
  virtual void OnPlaced() {}
  /// The same for a model without a view.
  virtual void OnRestored() {}
  /// The texts of the shape were changed from outside: show them wherever they stand.
  virtual void OnTextsChanged() { Invalidate(); }
  /// The whole layer of the shape is attached: resolve references within it.
  virtual void OnLayerPlaced() {}
  /// The area that `Draw` may touch, absolute model units; a paint skips what lies outside its
  /// region.
  virtual RECT GetPaintBounds() const { return GetBounds(); }
  /// The same for paper and pictures, which depends on nothing but the shape.
  virtual RECT GetPaperBounds() const { return GetPaintBounds(); }

  /// Puts the shape into a model and, with a view, on a chart.
  void AttachTo(ModelMgr* manager, ChartView* chartView);
  /// The model dies as a whole: the destructor needs to take nothing out of it any more.
  void ForgetModel();

  Layer GetLayer() const { return layer; }
  ChartView* GetView() const { return view; }
  /// This shape is in the selection of its view.
  bool IsInSelection() const;
  /// This shape goes by itself where what moves now goes.
  bool MovesAlong() const;

 protected:
  /// The layer of the class, which holds whatever a record says.
  virtual Layer GetClassLayer() const = 0;
  /// Asks for a repaint of a shape that has just come; not where all of a chart comes.
  void InvalidateNew();
  /// Asks "Please confirm deletion", or another text by id; true on Yes.
  static bool ConfirmDeletion(unsigned textId);

  ChartView* view = nullptr;
  ModelMgr* mgr = nullptr;
  Layer layer = LAYER_STATE;
};

}  // namespace morvane
