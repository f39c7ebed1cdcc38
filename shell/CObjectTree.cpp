#include "shell/CObjectTree.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>
#include <typeinfo>

#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "drawing/TextCodec.h"
#include "model/Collection.h"
#include "model/Enclosures.h"
#include "model/ModelMgr.h"
#include "platform/ModalLoop.h"
#include "resources/Texts.h"
#include "states/FinalState.h"
#include "states/GenericState.h"
#include "states/InitialState.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

enum NodeImage {
  IMAGE_ROOT,
  IMAGE_STATE,
  IMAGE_TRANSITION,
  IMAGE_SELF_TRANSITION,
  IMAGE_FREE_TRANSITION,
  IMAGE_MESG,
  IMAGE_INITIAL_STATE,
  IMAGE_FINAL_STATE,
  IMAGE_NOTE,
  IMAGE_LINE
};

/// With so few items the root has its first node, and opens.
constexpr std::size_t kFirstItems = 2;

// A tree of a large chart is filled after each undo, so that the kind of an object is asked in the
// fastest way: no class of a chart has another one of it above it.
template <class Made>
bool Is(const Shape& object) {
  return typeid(object) == typeid(Made);
}

const Shape* SourceOf(const Transition& transition) { return transition.GetSource(); }
Shape* TargetOf(const Transition& transition) { return transition.GetTarget(); }

NodeImage ImageOf(const Transition& transition) {
  const Shape* source = SourceOf(transition);
  const Shape* target = TargetOf(transition);
  if (source == nullptr || target == nullptr) return IMAGE_FREE_TRANSITION;
  return source == target ? IMAGE_SELF_TRANSITION : IMAGE_TRANSITION;
}

/// The first line of a note that says something.
std::string TextOf(Note& note) {
  const std::string text = ToUtf8(note.GetText().GetText());
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return LoadText(IDS_NOTE);
  return text.substr(start, text.find_first_of("\r\n", start) - start);
}

bool IsState(const Shape& object) { return object.GetLayer() == LAYER_STATE; }

/// The item behind this one in a walk that goes through each before its children and ends below
/// `root`.
TreeItem* NextInWalk(TreeItem* item, const TreeItem* root) {
  if (item->FirstChild() != nullptr) return item->FirstChild();
  while (item != root && item->Next() == nullptr) item = item->Parent();
  return item != root ? item->Next() : nullptr;
}

std::string TextOf(const Mesg& mesg) {
  return "on" + ToUtf8(mesg.GetText().GetEvent()) + " [" + ToUtf8(mesg.GetText().GetGuard()) + "]";
}

std::vector<std::pair<Shape*, RECT>> Outlines(const std::vector<Shape*>& states) {
  std::vector<std::pair<Shape*, RECT>> outlines;
  outlines.reserve(states.size());
  for (Shape* state : states) outlines.emplace_back(state, state->GetBounds());
  return outlines;
}

/// For each state the place of the one that it lies in, below 0 for none.
std::vector<int> HoldersOf(const std::vector<std::pair<Shape*, RECT>>& outlines) {
  std::vector<Enclosures::Box> boxes;
  boxes.reserve(outlines.size());
  for (const auto& [state, rect] : outlines) boxes.push_back({rect, Is<GenericState>(*state)});
  return Enclosures(std::move(boxes)).Holders();
}

}  // namespace

CObjectTree::CObjectTree()
    : CTreeCtrl({"tree-root", "tree-state", "tree-transition", "tree-selftransition",
                 "tree-freetransition", "tree-mesg", "tree-initialstate", "tree-finalstate",
                 "tree-note", "tree-line"}) {}

void CObjectTree::Attach(LayoutMgr* chart) {
  view = chart;
  const std::string& name = view->GetProperties().ModelName;
  if (FirstItem() == nullptr) InsertItem(nullptr, name, IMAGE_ROOT, IMAGE_ROOT, view);
  // After an undo the model may have another name.
  SetRootText(name);
}

void CObjectTree::Detach() {
  DeleteAllItems();
  nested.clear();
  formerlyOpen.reset();
  waitingToOpen.clear();
  view = nullptr;
}

void CObjectTree::SetRootText(const std::string& text) {
  if (TreeItem* root = FirstItem()) SetText(*root, text);
}

void CObjectTree::AddNode(Shape* object) {
  if (FirstItem() == nullptr) return;
  AddNode(object, nullptr);
  if (IsState(*object)) OnObjectsMoved();
  if (Count() <= kFirstItems) Expand(*FirstItem());
}

void CObjectTree::AddNode(Shape* object, TreeItem* parent) {
  TreeItem* place = parent != nullptr ? parent : FirstItem();
  if (Is<GenericState>(*object)) {
    // The layer says that it is a state; a cast that finds out takes longer than all the rest.
    const std::string& name = static_cast<const State*>(object)->GetName();
    InsertItem(place, name, IMAGE_STATE, IMAGE_STATE, object);
  } else if (Is<Transition>(*object)) {
    AddTransition(static_cast<Transition&>(*object));
  } else if (Is<InitialState>(*object)) {
    InsertItem(place, LoadText(IDS_INITIAL_STATE), IMAGE_INITIAL_STATE, IMAGE_INITIAL_STATE,
               object);
  } else if (Is<FinalState>(*object)) {
    InsertItem(place, LoadText(IDS_FINAL_STATE), IMAGE_FINAL_STATE, IMAGE_FINAL_STATE, object);
  } else if (Is<Note>(*object)) {
    InsertItem(place, TextOf(static_cast<Note&>(*object)), IMAGE_NOTE, IMAGE_NOTE, object);
  } else if (Is<Line>(*object)) {
    InsertItem(place, Translate("Line"), IMAGE_LINE, IMAGE_LINE, object);
  }
}

void CObjectTree::AddTransition(Transition& transition) {
  TreeItem* place = FirstItem();
  if (const Shape* source = SourceOf(transition)) place = FirstWithData(source);
  if (place == nullptr) return;
  const int image = ImageOf(transition);
  Shape* object = &transition;
  FillTransitionNode(transition, *InsertItem(place, "", image, image, object));
}

void CObjectTree::FillTransitionNode(const Transition& transition, TreeItem& item) {
  Mesg* mesg = transition.GetMesg();
  SetImage(item, ImageOf(transition));
  SetText(item, mesg != nullptr ? mesg->GetText().GetEvent() : std::string());
  DeleteChildren(item);
  Shape* target = TargetOf(transition);
  if (target == nullptr) return;
  if (target != SourceOf(transition)) AddNode(target, &item);
  if (mesg == nullptr) return;
  Shape* object = mesg;
  InsertItem(&item, TextOf(*mesg), IMAGE_MESG, IMAGE_MESG, object);
}

void CObjectTree::AddAllNodes(const std::vector<Shape*>& objects) {
  if (FirstItem() == nullptr) return;
  std::vector<Shape*> states;
  std::ranges::copy_if(objects, std::back_inserter(states),
                       [](const Shape* object) { return IsState(*object); });
  AddNested(states);
  for (const Layer layer : {LAYER_TRANSITION, LAYER_NOTE}) {
    for (Shape* object : objects) {
      if (object->GetLayer() == layer) AddNode(object, nullptr);
    }
  }
  // A transition without a source goes behind the others when its message comes.
  for (Shape* object : objects) {
    if (!Is<Mesg>(*object)) continue;
    Transition* transition = static_cast<Mesg*>(object)->GetTransition();
    if (transition != nullptr && SourceOf(*transition) == nullptr) UpdateNodes(transition);
  }
  if (formerlyOpen.has_value()) {
    OpenAgain(*formerlyOpen);
    formerlyOpen.reset();
  } else {
    Expand(*FirstItem());
  }
}

/// Adds states in their order, each below the one that it lies in.
void CObjectTree::AddNested(const std::vector<Shape*>& states) {
  nested = Outlines(states);
  const std::vector<int> holders = HoldersOf(nested);
  std::vector<std::vector<std::size_t>> inside(states.size() + 1);
  for (std::size_t i = 0; i < states.size(); ++i) {
    inside[static_cast<std::size_t>(holders[i]) + 1].push_back(i);
  }
  // From the outermost ones inwards.
  std::vector<std::size_t> waiting{0};
  while (!waiting.empty()) {
    const std::size_t holder = waiting.back();
    waiting.pop_back();
    TreeItem* place = holder != 0 ? FirstWithData(states[holder - 1]) : nullptr;
    for (const std::size_t i : inside[holder]) {
      AddNode(states[i], place);
      if (!inside[i + 1].empty()) waiting.push_back(i + 1);
    }
  }
}

void CObjectTree::RemoveNodes(Shape* object) {
  if (IsState(*object)) {
    // What lies in it stays.
    TreeItem* own = FirstWithData(object);
    TreeItem* next = own != nullptr ? own->FirstChild() : nullptr;
    while (next != nullptr) {
      TreeItem* item = std::exchange(next, next->Next());
      if (IsState(*ShapeOf(*item))) MoveItem(*item, *own->Parent());
    }
    nested.clear();
    OnObjectsMoved();
  }
  for (TreeItem* node = FirstWithData(object); node != nullptr; node = FirstWithData(object)) {
    if (node->IsExpanded()) waitingToOpen.insert(KeyOf(*node));
    DeleteItem(*node);
  }
}

void CObjectTree::RemoveAllNodes() {
  const TreeItem* root = FirstItem();
  if (root == nullptr) return;
  if (root->ChildCount() > 0) formerlyOpen = FindOpen();
  const std::string text = root->Text();
  DeleteAllItems();
  nested.clear();
  InsertItem(nullptr, text, IMAGE_ROOT, IMAGE_ROOT, view);
}

Shape* CObjectTree::ShapeOf(const TreeItem& item) const {
  return item.Data() != view ? static_cast<Shape*>(item.Data()) : nullptr;
}

std::int32_t CObjectTree::IdOf(const TreeItem& item) const {
  const Shape* shape = ShapeOf(item);
  return shape != nullptr ? shape->GetId() : 0;
}

CObjectTree::OpenItems::value_type CObjectTree::KeyOf(const TreeItem& item) const {
  return {IdOf(item), item.Parent() != nullptr ? IdOf(*item.Parent()) : 0};
}

CObjectTree::OpenItems CObjectTree::FindOpen() const {
  OpenItems found = waitingToOpen;
  TreeItem* root = FirstItem();
  for (TreeItem* item = root; item != nullptr; item = NextInWalk(item, root)) {
    if (item->IsExpanded() && item->ChildCount() > 0) found.insert(KeyOf(*item));
  }
  return found;
}

/// An item that has come under another one is open below any.
void CObjectTree::OpenAgain(const OpenItems& items) {
  waitingToOpen.clear();
  if (items.contains({0, 0})) Expand(*FirstItem());
  for (const auto& [id, above] : items) {
    if (id == 0) continue;
    const Shape* shape = view->GetModel().Find(id);
    TreeItem* item = FirstWithData(shape);
    while (item != nullptr && IdOf(*item->Parent()) != above) item = item->NextWithData();
    if (item == nullptr) item = FirstWithData(shape);
    if (item != nullptr) Expand(*item);
    if (item == nullptr || !item->IsExpanded()) waitingToOpen.emplace(id, above);
  }
}

void CObjectTree::UpdateNodes(Shape* object) {
  for (TreeItem* node : FindItems(object)) {
    if (Is<GenericState>(*object)) {
      SetText(*node, static_cast<const State*>(object)->GetName());
    } else if (Is<Note>(*object)) {
      SetText(*node, TextOf(static_cast<Note&>(*object)));
    } else if (Is<Transition>(*object)) {
      UpdateTransition(static_cast<Transition&>(*object), *node);
    }
  }
  // The item that was selected may have been made anew.
  if (Selected() == nullptr) OnSelectionChanged();
}

/// Without a source it is always made anew: it never stands below one.
void CObjectTree::UpdateTransition(Transition& transition, TreeItem& item) {
  if (item.Parent()->Data() == SourceOf(transition)) {
    FillTransitionNode(transition, item);
    return;
  }
  DeleteItem(item);
  AddNode(&transition);
}

/// A gesture is under way, or a box waits: nothing may change the selection under it.
bool CObjectTree::IsChartBusy() const {
  return view == nullptr || view->HasCapture() || ModalLoop::IsRunning();
}

void CObjectTree::OnSelectionChanged() {
  if (std::exchange(isSelectionStale, true)) return;
  GoStale();
}

void CObjectTree::OnObjectsMoved() {
  if (std::exchange(isNestingStale, true)) return;
  GoStale();
}

void CObjectTree::BringUpToDate() {
  const bool nestingWasStale = std::exchange(isNestingStale, false);
  const bool selectionWasStale = std::exchange(isSelectionStale, false);
  if (view == nullptr || FirstItem() == nullptr) return;
  if (nestingWasStale) Nest();
  if (selectionWasStale) FollowSelection();
}

void CObjectTree::Nest() {
  std::vector<Shape*> states;
  for (Shape* object : view->GetModel().Objects()) {
    if (IsState(*object) && FirstWithData(object) != nullptr) states.push_back(object);
  }
  std::vector<std::pair<Shape*, RECT>> outlines = Outlines(states);
  if (outlines == nested) return;
  nested = std::move(outlines);
  const std::vector<int> holders = HoldersOf(nested);
  std::vector<int> order(states.size());
  std::iota(order.begin(), order.end(), 0);
  // The larger ones first: what holds a state never stands below it then.
  std::ranges::stable_sort(order, std::greater<>(), [this](int at) {
    const RECT& r = nested[static_cast<std::size_t>(at)].second;
    return static_cast<double>(Width(r)) * static_cast<double>(Height(r));
  });
  for (const int at : order) {
    const int holder = holders[static_cast<std::size_t>(at)];
    TreeItem* place =
        holder >= 0 ? FirstWithData(states[static_cast<std::size_t>(holder)]) : FirstItem();
    MoveItem(*FirstWithData(states[static_cast<std::size_t>(at)]), *place);
  }
}

/// Of several objects the one that was selected last.
void CObjectTree::FollowSelection() {
  const std::vector<Collectable*>& members = view->GetSelection().Members();
  const auto* shape = members.empty() ? nullptr : dynamic_cast<const Shape*>(members.back());
  TreeItem* present = Selected();
  if (present != nullptr && ShapeOf(*present) == shape) return;
  TreeItem* item = shape != nullptr ? FirstWithData(shape) : nullptr;
  if (item != nullptr) {
    for (TreeItem* above = item->Parent(); above != nullptr; above = above->Parent()) {
      Expand(*above);
    }
  }
  Select(item);
}

void CObjectTree::OnLButtonDown(TreeItem* hit) {
  if (hit == nullptr || IsChartBusy()) return;
  Select(hit);
  OnChosen(*hit);
}

void CObjectTree::OnChosen(TreeItem& item) {
  Shape* shape = ShapeOf(item);
  if (shape != nullptr && !IsChartBusy()) view->Reveal({shape});
}

bool CObjectTree::OnKeyDown(VirtualKey key) {
  const TreeItem* item = Selected();
  if (key != VirtualKey::Delete || item == nullptr || IsChartBusy()) return false;
  Shape* shape = ShapeOf(*item);
  if (shape == nullptr) return false;
  if (!view->GetSelection().Contains(shape)) view->GetModel().SelectOnly(shape);
  view->DeleteSelection();
  return true;
}

bool CObjectTree::OnRButtonDown(TreeItem* hit, POINT screen) {
  if (hit == nullptr || IsChartBusy()) return false;
  Select(hit);
  // The command that is chosen may delete the object, and its item with it.
  if (Shape* shape = ShapeOf(*hit)) {
    view->GetModel().ShowObjectMenu(shape, screen.x, screen.y);
  } else {
    view->ShowChartMenu(screen);
  }
  return true;
}

}  // namespace morvane
