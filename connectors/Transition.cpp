#include "connectors/Transition.h"

#include <istream>
#include <utility>

#include "connectors/HeadLink.h"
#include "connectors/Mesg.h"
#include "connectors/NewObjects.h"
#include "connectors/RouteSketch.h"
#include "connectors/TailLink.h"
#include "model/ChartView.h"
#include "model/GroupMove.h"
#include "model/InPlaceField.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/ShapeGeometry.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

Transition::Transition() = default;

Transition::Transition(std::int32_t id, ChartView* view, POINT sourcePoint, POINT targetPoint)
    : StateTransition(id, view, LAYER_TRANSITION),
      sourcePoint(sourcePoint),
      targetPoint(targetPoint),
      sourceKey{1, SIDE_BOTTOM},
      targetKey{1, SIDE_TOP},
      records(FreeRoute(sourcePoint, targetPoint)) {}

Transition::~Transition() {
  if (source != nullptr) source->RemoveTransition(this);
  if (target != nullptr) target->RemoveTransition(this);
  TakeAlong(std::exchange(mesg, nullptr));
  for (Mesg* message : std::exchange(formerMessages, {})) TakeAlong(message);
}

const std::string& Transition::GetTypeName() const {
  static const std::string keyword = "Transition";
  return keyword;
}

void Transition::Write(ModelStream& stream) const {
  ComplexShape::Write(stream);
  stream << sourcePoint.x << ' ' << sourcePoint.y << ' ' << targetPoint.x << ' ' << targetPoint.y
         << '\n';
  const bool attached = mgr != nullptr;
  const std::int32_t from = source != nullptr ? source->GetId() : attached ? 0 : sourceId;
  const std::int32_t to = target != nullptr ? target->GetId() : attached ? 0 : targetId;
  stream << from << ' ' << to << '\n';
  stream << std::uint32_t{sourceKey.side} << ' ' << std::uint32_t{sourceKey.index} << ' '
         << std::uint32_t{targetKey.side} << ' ' << std::uint32_t{targetKey.index} << '\n';
  for (const ChainRecord& link : chain.IsEmpty() ? records : Route()) {
    stream << link.kind << ' ' << link.start.x << ' ' << link.start.y << ' ' << link.end.x << ' '
           << link.end.y << " \n";
  }
}

void Transition::Read(ModelStream& stream) {
  ComplexShape::Read(stream);
  stream >> sourcePoint.x >> sourcePoint.y >> targetPoint.x >> targetPoint.y;
  SkipLine(stream.In());
  stream >> sourceId >> targetId;
  SkipLine(stream.In());
  stream >> sourceKey.side >> sourceKey.index >> targetKey.side >> targetKey.index;
  SkipLine(stream.In());
  ReadChain(stream);
}

void Transition::ReadChain(ModelStream& stream) {
  constexpr std::size_t usualLinks = 4;
  records.clear();
  records.reserve(usualLinks);
  ChainRecord record;
  do {
    std::int16_t kind = 0;
    stream >> kind >> record.start.x >> record.start.y >> record.end.x >> record.end.y;
    if (stream.In().fail()) throw LoadText(IDS_INVALID_FILE);
    SkipLine(stream.In());
    record.kind = kind;
    records.push_back(record);
  } while (record.kind != LINK_TAIL);
}

bool Transition::RemapIds(IdMap& map) {
  ComplexShape::RemapIds(map);
  for (std::int32_t* reference : {&sourceId, &targetId}) {
    const auto found = map.find(*reference);
    *reference = *reference != 0 && found != map.end() ? found->second : 0;
  }
  return true;
}

void Transition::OnPlaced() {
  ResolveEnds();
  RebuildChain();
  NoteBounds();
  ComplexShape::OnPlaced();
}

void Transition::OnRestored() { ResolveEnds(); }

/// A reference to no object, or to one of the wrong kind, leaves the end free.
void Transition::ResolveEnds() {
  if (auto* from = dynamic_cast<StartableState*>(mgr->Find(sourceId))) {
    source = from;
    from->AddTransition(this);
  }
  if (auto* to = dynamic_cast<EndableState*>(mgr->Find(targetId))) {
    target = to;
    to->AddTransition(this);
  }
}

void Transition::AttachSource(StartableState* state, const AnchorKey& key) {
  if (source != nullptr) source->RemoveTransition(this);
  source = state;
  sourceKey = key;
  state->AddTransition(this);
  OnSourceMoved();
}

void Transition::AttachTarget(EndableState* state, const AnchorKey& key) {
  if (target != nullptr) target->RemoveTransition(this);
  target = state;
  targetKey = key;
  state->AddTransition(this);
  OnTargetMoved();
}

void Transition::OnSourceMoved() {
  const POINT* anchor = source != nullptr ? source->AnchorAt(sourceKey) : nullptr;
  if (anchor != nullptr) MoveSourceEnd(*anchor);
}

void Transition::OnTargetMoved() {
  const POINT* anchor = target != nullptr ? target->AnchorAt(targetKey) : nullptr;
  if (anchor != nullptr) MoveTargetEnd(*anchor);
}

void Transition::OnBothEndsMoved() {
  const RouteEnd from = SourceEnd();
  const RouteEnd to = TargetEnd();
  const POINT way = from.anchor - chain.Head()->start;
  if (to.anchor - chain.Tail()->end != way) {
    MoveSourceEnd(from.anchor);
    MoveTargetEnd(to.anchor);
  } else if (way != POINT{}) {
    BuildRegion();
    chain.Head()->Offset(way);
    RefreshRoute();
  }
}

void Transition::MoveTargetFree(std::int32_t x, std::int32_t y) {
  if (target != nullptr) target->RemoveTransition(this);
  MoveTargetEnd(FreePlace(view->ToAbsolute({x, y}), targetKey.side));
}

void Transition::DetachSource() {
  source = nullptr;
  UpdateNodes();
}

void Transition::DetachTarget() {
  target = nullptr;
  UpdateNodes();
}

void Transition::TakeAlong(Mesg* message) {
  if (message == nullptr) return;
  message->ForgetTransition();
  delete message;
}

void Transition::SetMesg(Mesg* message) {
  if (mesg != nullptr && mesg != message) formerMessages.insert(mesg);
  mesg = message;
  UpdateNodes();
}

void Transition::ClearMesg(Mesg* message) {
  if (mesg == message) {
    mesg = nullptr;
  } else {
    formerMessages.erase(message);
  }
  UpdateNodes();
}

void Transition::UpdateNodes() {
  if (view != nullptr) view->UpdateNodes(this);
}

void Transition::OnBroadcast(int op, void* arg) {
  switch (op) {
    case BROADCAST_DESELECTED:
    case BROADCAST_SELECTED: OnSelectionChanged(); break;
    case BROADCAST_MOVE: MoveBy(*static_cast<const POINT*>(arg)); break;
    case BROADCAST_SHOW_GHOST: ShowGhost(*static_cast<const POINT*>(arg)); break;
    case BROADCAST_END_GHOST: stamp.End(); break;
    default: break;
  }
}

/// Keeps its shape and lets go of what doesn't move along.
void Transition::MoveBy(POINT offset) {
  BuildRegion();
  InvalidateEnds();
  if (source != nullptr && !source->MovesAlong()) source->RemoveTransition(this);
  if (target != nullptr && !target->MovesAlong()) target->RemoveTransition(this);
  chain.Head()->Offset(offset);
  RefreshRoute();
}

void Transition::AddCompanions(GroupMove& move) {
  const bool whole =
      source != nullptr && target != nullptr && move.Contains(source) && move.Contains(target);
  if (mesg != nullptr && whole) move.Add(mesg);
}

bool Transition::GoesWith(const GroupMove& move) const {
  return (source == nullptr || move.Contains(source)) &&
         (target == nullptr || move.Contains(target));
}

void Transition::OnCommand(unsigned command) {
  switch (command) {
    case ID_TRANSITION_ADD_MESG: AddMesg(); break;
    case ID_TRANSITION_ALIGN_MESG:
      if (mesg != nullptr) mesg->Align();
      break;
    case ID_TRANSITION_DELETE_MESG: delete mesg; break;
    case ID_TRANSITION_DELETE:
      if (ConfirmDeletion(IDS_CONFIRM_DELETION)) delete this;
      break;
    default: ComplexShape::OnCommand(command);
  }
}

void Transition::AddMesg() {
  if (mesg == nullptr) MakeMesg()->EditText();
}

void Transition::OnLButtonDblClk(unsigned /*flags*/, std::int32_t /*x*/, std::int32_t /*y*/) {
  if (mesg != nullptr) return mesg->EditText();
  view->EditInPlace(*this);
}

Mesg* Transition::MakeMesg() {
  POINT origin;
  mesg = InsertMesg(*mgr, origin, this);
  mesg->Align();
  return mesg;
}

std::optional<InPlaceField> Transition::FieldInPlace() const {
  if (mesg != nullptr) return std::nullopt;
  const RECT box = Mesg::DefaultRect();
  return Mesg::EventField(*view, box + (LabelPoint() - CentreOf(box)), "");
}

void Transition::TakeInPlace(const std::string& typed) {
  if (mesg == nullptr && !typed.empty()) MakeMesg()->TakeInPlace(typed);
}

}  // namespace morvane
