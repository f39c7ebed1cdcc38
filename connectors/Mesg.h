#pragma once

#include <functional>

#include "connectors/AnchorMarker.h"
#include "connectors/BoxLook.h"
#include "connectors/EventEditorBox.h"
#include "connectors/TextFit.h"
#include "model/ConnectableRectShape.h"

namespace morvane {

class Transition;

/// The box that carries the event, guard and effect of a transition. While its centre stands on the
/// label of the route it follows the route.
class Mesg : public ConnectableRectShape {
 public:
  Mesg() = default;
  Mesg(std::int32_t id, ChartView* view, const RECT& rect, Transition* transition);
  ~Mesg() override;

  /// The rectangle of a new message at the origin, model units.
  static constexpr RECT DefaultRect() { return {0, 0, 10, 6}; }

  void Write(ModelStream& stream) const override;
  void Read(ModelStream& stream) override;
  void Draw(CDC* dc) override;
  void DrawMarks(CDC& window) override;
  const std::string& GetTypeName() const override;
  bool RemapIds(IdMap& map) override;
  void OnCommand(unsigned command) override;
  void OnLButtonDown(unsigned flags, std::int32_t x, std::int32_t y) override;
  void OnLButtonDblClk(unsigned flags, std::int32_t x, std::int32_t y) override;
  bool OnSetCursor(CWnd* window, unsigned hitTest, unsigned message) override;
  /// On its route a message follows that.
  bool GoesWith(const GroupMove& move) const override;
  void OnTextsChanged() override;
  std::optional<InPlaceField> FieldInPlace() const override;
  void TakeInPlace(const std::string& typed) override;
  void OnPlaced() override;
  void OnRestored() override;
  void OnRectChanged(const RECT& old, bool sized) override;
  void ShowHandles(bool show) override;
  void RefreshAnchors() override;
  /// The callback while the green handle is dragged; the point is in device pixels, in and out.
  virtual void OnStickDrag(POINT& client);

  /// The centre of the box, absolute model units.
  POINT GetCentre() const { return CentreOf(rect); }
  /// The green handle in the middle of the box, device pixels.
  RECT GetStickHandle() const;
  /// Lets the user edit the texts; the box grows with them.
  void EditText();
  /// The field of an event in a message's box of model units.
  static InPlaceField EventField(const ChartView& view, const RECT& box, const std::string& event);
  /// Puts the box on the label of the route.
  void Align();
  /// Puts the centre on a point of the chart, or as near to it as the chart's edge lets the box.
  void PutOn(POINT label);
  /// The box stands where `PutOn` would put it.
  bool StandsOn(POINT label) const;
  /// The box stands on the label. A message without a transition has none to stand on.
  bool IsAligned() const;

  /// Null in a damaged file alone: then the box is loose.
  Transition* GetTransition() const { return transition; }
  /// The transition that the record names, whether there is such an object or not.
  std::int32_t GetReadTransitionId() const { return transitionId; }
  /// The transition is gone.
  void ForgetTransition() { transition = nullptr; }
  EventEditorBox& GetText() { return text; }
  const EventEditorBox& GetText() const { return text; }

 protected:
  Layer GetClassLayer() const override { return LAYER_MESG; }

 private:
  static bool StandsOn(const RECT& box, POINT label);
  void ResolveTransition();
  /// Lets the texts change, and the box grow with them.
  void Retype(const std::function<bool()>& change);
  void EditProperties();
  bool IsOnStickHandle(POINT client) const;

  EventEditorBox text;
  Transition* transition = nullptr;
  AnchorMarker marker;
  BoxLook look;
  TextFit fit{DefaultRect(), {6, 6}};
  std::int32_t transitionId = 0;
};

}  // namespace morvane
