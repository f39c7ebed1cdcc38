#include "connectors/Mesg.h"

#include "connectors/HandleSquare.h"
#include "connectors/Transition.h"
#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Defaults.h"
#include "model/DrawResources.h"
#include "model/Editors.h"
#include "model/InPlaceField.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "platform/Service.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::int32_t kStickReach = 4;
/// The text keeps away from each edge, logical units.
constexpr std::int32_t kTextMargin = 3;

}  // namespace

Mesg::Mesg(std::int32_t id, ChartView* view, const RECT& rect, Transition* transition)
    : ConnectableRectShape(id, view, rect, LAYER_MESG),
      transition(transition),
      transitionId(transition->GetId()) {
  const Defaults& settings = Defaults::Instance();
  look.bgTransparent = settings.MesgBgTransparent != 0 ? 1 : 0;
  look.noBorder = settings.MesgBorder != 0 ? 1 : 0;
  look.bgColor = settings.MesgBgColor;
  look.borderColor = settings.MesgBorderColor;
  showAnchors = settings.MesgAnchor != 0;
}

Mesg::~Mesg() {
  if (transition != nullptr) transition->ClearMesg(this);
}

const std::string& Mesg::GetTypeName() const {
  static const std::string keyword = "Mesg";
  return keyword;
}

void Mesg::Write(ModelStream& stream) const {
  ConnectableRectShape::Write(stream);
  look.Write(stream);
  stream << (transition != nullptr ? transition->GetId() : transitionId) << '\n';
  text.Write(stream);
}

void Mesg::Read(ModelStream& stream) {
  ConnectableRectShape::Read(stream);
  look.Read(stream);
  SkipLine(stream.In());
  stream >> transitionId;
  SkipLine(stream.In());
  text.Read(stream);
}

bool Mesg::RemapIds(IdMap& map) {
  ConnectableRectShape::RemapIds(map);
  const auto found = map.find(transitionId);
  if (transitionId == 0 || found == map.end()) return false;
  transitionId = found->second;
  return true;
}

void Mesg::OnPlaced() {
  text.SetView(view);
  ResolveTransition();
  ConnectableRectShape::OnPlaced();
}

void Mesg::OnRestored() { ResolveTransition(); }

/// A reference to no transition leaves the box loose.
void Mesg::ResolveTransition() {
  if (transition == nullptr) transition = dynamic_cast<Transition*>(mgr->Find(transitionId));
  if (transition != nullptr) transition->SetMesg(this);
}

void Mesg::RefreshAnchors() {
  ClearAnchors();
  const POINT middle = CentreOf(rect);
  anchors.Add({1, SIDE_TOP}, {rect.left, rect.top});
  anchors.Add({2, SIDE_TOP}, {middle.x, rect.top});
  anchors.Add({3, SIDE_TOP}, {rect.right, rect.top});
  anchors.Add({1, SIDE_RIGHT}, {rect.right, middle.y});
  anchors.Add({1, SIDE_BOTTOM}, {rect.right, rect.bottom});
  anchors.Add({2, SIDE_BOTTOM}, {middle.x, rect.bottom});
  anchors.Add({3, SIDE_BOTTOM}, {rect.left, rect.bottom});
  anchors.Add({1, SIDE_LEFT}, {rect.left, middle.y});
}

RECT Mesg::GetStickHandle() const { return HandleSquare(view->ToClient(GetCentre()), kStickReach); }

void Mesg::PutOn(POINT label) { MoveTo(rect + (label - GetCentre())); }

bool Mesg::StandsOn(POINT label) const { return StandsOn(rect, label); }

bool Mesg::StandsOn(const RECT& box, POINT label) {
  const POINT way = label - CentreOf(box);
  return way == POINT{} || box == PlaceOnChart(box + way);
}

void Mesg::Align() {
  if (transition != nullptr) PutOn(transition->LabelPoint());
}

bool Mesg::IsAligned() const { return transition != nullptr && StandsOn(transition->LabelPoint()); }

void Mesg::OnRectChanged(const RECT& old, bool sized) {
  if (sized && transition != nullptr) {
    const POINT label = transition->LabelPoint();
    if (StandsOn(old, label)) PutOn(label);
  }
  ConnectableRectShape::OnRectChanged(old, sized);
}

bool Mesg::GoesWith(const GroupMove& /*move*/) const {
  return transition == nullptr || !IsAligned();
}

/// The marks that tie box and route show on both while one of them is selected.
void Mesg::ShowHandles(bool show) {
  if (transition != nullptr) transition->InvalidateLabel();
  view->InvalidateRect(GetStickHandle());
  ConnectableRectShape::ShowHandles(show);
}

void Mesg::Draw(CDC* dc) {
  const RECT box = view->ToLogical(rect);
  const CBrush brush = look.bgTransparent != 0 ? CBrush::Null() : CBrush::Solid(look.bgColor);
  if (look.noBorder == 0) {
    const CPen oldPen = dc->SelectPen({PenStyle::Solid, 0, look.borderColor});
    const CBrush oldBrush = dc->SelectBrush(brush);
    dc->Rectangle(box);
    dc->SelectBrush(oldBrush);
    dc->SelectPen(oldPen);
  } else if (!brush.hollow) {
    dc->FillRect(box, brush);
  }
  const RECT inner = InflateRect(box, -kTextMargin);
  text.Draw(dc, &inner);
}

void Mesg::DrawMarks(CDC& window) {
  ConnectableRectShape::DrawMarks(window);
  if (transition == nullptr) return;
  if (IsInSelection() || transition->IsInSelection()) {
    window.FillRect(GetStickHandle(), DrawResources::Instance().linkBrush);
  }
}

void Mesg::OnCommand(unsigned command) {
  switch (command) {
    case ID_MESG_DELETE:
      if (ConfirmDeletion(IDS_CONFIRM_DELETION)) delete this;
      break;
    case ID_MESG_EDIT: EditText(); break;
    case ID_OBJECT_PROPERTIES: EditProperties(); break;
    case ID_MESG_ALIGN: Align(); break;
    default: ConnectableRectShape::OnCommand(command);
  }
}

void Mesg::OnLButtonDblClk(unsigned /*flags*/, std::int32_t /*x*/, std::int32_t /*y*/) {
  EditText();
}

void Mesg::EditText() {
  Retype([this] { return text.EditText("Message"); });
}

std::optional<InPlaceField> Mesg::FieldInPlace() const {
  return EventField(*view, rect, text.GetEvent());
}

/// The first line of what shows.
InPlaceField Mesg::EventField(const ChartView& view, const RECT& box, const std::string& event) {
  RECT line = InflateRect(view.ToLogical(box), -kTextMargin);
  const std::int32_t height = view.MeasureChartText("X", Saturate(Width(line))).cy;
  line.bottom = AddSat(line.top, height);
  return InPlaceField{
      .label = Translate("Event"), .text = event, .area = InflateRect(line, kTextMargin)};
}

void Mesg::TakeInPlace(const std::string& typed) {
  if (typed.empty()) return view->TellLater(LoadText(IDS_EVENT_EMPTY));
  Retype([this, &typed] {
    text.SetTexts(typed, text.GetGuard(), text.GetEffect());
    return true;
  });
}

void Mesg::Retype(const std::function<bool()>& change) {
  const bool automatic = fit.IsAutomatic(*view, rect, text.ShownText());
  if (!change()) return;
  if (automatic) ResizeTo(fit.Grow(*view, rect, text.ShownText()));
  OnTextsChanged();
}

void Mesg::OnTextsChanged() {
  Invalidate();
  if (transition != nullptr) view->UpdateNodes(transition);
}

void Mesg::EditProperties() {
  BoxFields fields = look.Fields(showAnchors);
  if (!Service<Editors>::Get().EditMesg(fields)) return;
  look.Take(fields, showAnchors);
  Invalidate();
}

}  // namespace morvane
