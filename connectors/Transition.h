#pragma once

#include <unordered_set>
#include <vector>

#include "connectors/AnchorMarker.h"
#include "connectors/ChainRecord.h"
#include "connectors/LinkChain.h"
#include "connectors/MetafileStamp.h"
#include "connectors/OrthogonalRouter.h"
#include "connectors/RoutePainter.h"
#include "model/AnchorKey.h"
#include "model/AnchorOffer.h"
#include "states/StateTransition.h"

namespace morvane {

class ChartRouter;
class EndableState;
class Mesg;
class SelectionMove;
class StartableState;
class State;
struct CPen;

/// The arrow of a chart: it runs from a state to a state along a chain of rectilinear links and may
/// carry a message. Either end may be free.
///
/// Its operations stand in several sources: the object and its ends here, its route in
/// TransitionRoute, its painting in TransitionPaint, the mouse in TransitionDrag.
class Transition : public StateTransition {
 public:
  /// Empty, until `Read`.
  Transition();
  /// A free upright arrow between two points, model units.
  Transition(std::int32_t id, ChartView* view, POINT sourcePoint, POINT targetPoint);
  /// Takes its messages along.
  ~Transition() override;

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void Draw(CDC* dc) override { PrintRoute(dc); }
  /// In device pixels, those of the region and the handles.
  void DrawOnScreen(CDC& dc) override;
  void DrawMarks(CDC& window) override;
  bool HitTest(const POINT& client) const override;
  RECT GetPaintBounds() const override { return bounds; }
  RECT GetPaperBounds() const override { return bounds; }
  RECT GetMoveBounds() const override;
  /// A route that moves with its two states takes its message along.
  void AddCompanions(GroupMove& move) override;
  bool GoesWith(const GroupMove& move) const override;
  const std::string& GetTypeName() const override;
  bool RemapIds(IdMap& map) override;
  void OnCommand(unsigned command) override;
  /// A transition without a message gets one by what is typed where its event would stand.
  std::optional<InPlaceField> FieldInPlace() const override;
  void TakeInPlace(const std::string& typed) override;
  bool TakesPressWithControl() const override { return true; }
  void OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) override;
  /// The route runs through its message: the editor of that opens.
  void OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y) override;
  bool YieldsToConnection(unsigned flags, POINT client) override;
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) override;
  void OnPlaced() override;
  void OnRestored() override;
  void OnDragMove(POINT& client) override;
  void OnBroadcast(int op, void* arg) override;

  /// Ties an end to an anchor: leaves the former state, sets pointer and key, enters the state's
  /// list, moves the end there.
  void AttachSource(StartableState* state, const AnchorKey& key);
  void AttachTarget(EndableState* state, const AnchorKey& key);

  void OnSourceMoved() override;
  void OnTargetMoved() override;
  /// Where both have the same way the route keeps its shape.
  void OnBothEndsMoved() override;
  /// Detaches the tail end and takes it to a client point.
  void MoveTargetFree(std::int32_t x, std::int32_t y);
  void DetachSource() override;
  void DetachTarget() override;

  /// What the record names as the ends, whether there is such an object or not; 0 for a free end.
  std::int32_t GetReadSourceId() const { return sourceId; }
  std::int32_t GetReadTargetId() const { return targetId; }

  /// The message; null if none.
  Mesg* GetMesg() const { return mesg; }
  /// A message names this transition as its own. Where a damaged file has several, the last one is
  /// `GetMesg` and all die with the transition.
  void SetMesg(Mesg* message);
  void ClearMesg(Mesg* message);

  /// Where an end stands, or would stand on the anchor of its key.
  RouteEnd SourceEnd() const;
  RouteEnd TargetEnd() const;
  /// The route runs through one of its own states, which it need not: that one isn't around the
  /// other end.
  bool RunsThroughOwnState() const;
  /// Lays a new route from end to end.
  void Reroute(const ChartRouter& router);

  /// The middle of the route in model units, where a message stands.
  POINT LabelPoint() const;
  /// The square on the middle of the route from which a message hangs, device pixels.
  RECT GetLabelRect() const;
  void InvalidateLabel();

  /// The links, model units; empty before `OnPlaced`.
  const LinkChain& GetChain() const { return chain; }
  /// The live chain as records, model units.
  std::vector<ChainRecord> Route() const { return chain.Records(); }

  /// Client pixels of an absolute model point; the links' way to the view.
  POINT ToClient(POINT model) const;

  /// Paints the route in device pixels; without a pen, in the one that tells whether an end is
  /// free.
  void DrawRoute(CDC* dc, const CPen* pen) const;
  /// Paints the route in logical units, black.
  void PrintRoute(CDC* dc) const;

 protected:
  Layer GetClassLayer() const override { return LAYER_TRANSITION; }
  CRgn RegionAt(const Conversion& convert) const override;
  void BuildRegion() override;

 private:
  void ReadChain(ModelStream& stream);
  void ResolveEnds();
  static void TakeAlong(Mesg* message);
  void UpdateNodes();
  void AddMesg();
  Mesg* MakeMesg();
  void MoveBy(POINT offset);

  void MoveSourceEnd(POINT anchor);
  void MoveTargetEnd(POINT anchor);
  void RebuildChain();
  void RefreshRoute();
  void FollowLabel(POINT oldLabel);
  POINT FreePlace(POINT drop, std::uint16_t side) const;
  void NoteBounds();

  POINT ReachTo(const State* state, const AnchorKey& key, POINT end, int perModel) const;
  RoutePainter::Reach ReachOfEnds(int perModel) const;
  void InvalidateEnds();
  std::vector<RECT> VisibleHandles() const;
  void OnSelectionChanged();
  void ShowGhost(POINT offset);

  Link* LinkAt(POINT client) const;
  bool DragActiveLink(POINT press);
  std::vector<POINT> RouteWithEndAt(POINT client) const;
  bool TrackEnd(POINT press, POINT& drop);
  bool DragHead(POINT press);
  bool DragTail(POINT press);
  bool DragLink(POINT press);
  void DragWhole(POINT press, unsigned flags);

  POINT sourcePoint;
  POINT targetPoint;
  AnchorKey sourceKey;
  AnchorKey targetKey;
  LinkChain chain{this};
  Link* activeLink = nullptr;  ///< the one in hand during a drag; null in a drag of the whole
  AnchorOffer offer;           ///< where the end in hand would be caught
  POINT grabOffset;  ///< from the press to the place of the segment in hand, device pixels
  AnchorMarker marker;
  MetafileStamp stamp;
  SelectionMove* wholeDrag = nullptr;  ///< the drag of the whole while it runs
  POINT dragOrigin;                    ///< of a drag of the whole, model units with no scroll added
  Mesg* mesg = nullptr;
  std::unordered_set<Mesg*> formerMessages;  ///< in a damaged file others name it too
  POINT labelCentre;                         ///< at the last region build, model units
  RECT bounds;                               ///< around all that is painted, at any zoom
  std::vector<ChainRecord> records;          ///< the route as it was made or read, to go back to
  std::int32_t sourceId = 0;
  std::int32_t targetId = 0;
};

}  // namespace morvane
