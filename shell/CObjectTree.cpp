#include "shell/CObjectTree.h"

#include <typeinfo>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
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
  IMAGE_FINAL_STATE
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

std::string TextOf(const Mesg& mesg) {
  return "on" + mesg.GetText().GetEvent() + " [" + mesg.GetText().GetGuard() + "]";
}

}  // namespace

CObjectTree::CObjectTree()
    : CTreeCtrl({"tree-root", "tree-state", "tree-transition", "tree-selftransition",
                 "tree-freetransition", "tree-mesg", "tree-initialstate", "tree-finalstate"}) {}

void CObjectTree::Attach(LayoutMgr* chart) {
  view = chart;
  const std::string& name = view->GetProperties().ModelName;
  if (FirstItem() == nullptr) InsertItem(nullptr, name, IMAGE_ROOT, IMAGE_ROOT, view);
  // After an undo the model may have another name.
  SetRootText(name);
}

void CObjectTree::Detach() {
  DeleteAllItems();
  view = nullptr;
}

void CObjectTree::SetRootText(const std::string& text) {
  if (TreeItem* root = FirstItem()) SetText(*root, text);
}

void CObjectTree::AddNode(Shape* object) { AddNode(object, nullptr); }

void CObjectTree::AddNode(Shape* object, TreeItem* parent) {
  TreeItem* root = FirstItem();
  if (root == nullptr) return;
  TreeItem* place = parent != nullptr ? parent : root;
  if (Is<GenericState>(*object)) {
    // The layer says that it is a state; a cast that finds out takes longer than all the rest.
    const std::string& name = static_cast<const State*>(object)->GetName();
    InsertItem(place, name, IMAGE_STATE, IMAGE_STATE, object);
  } else if (Is<Transition>(*object)) {
    AddTransition(static_cast<Transition&>(*object));
  } else if (Is<InitialState>(*object)) {
    InsertItem(root, LoadText(IDS_INITIAL_STATE), IMAGE_INITIAL_STATE, IMAGE_INITIAL_STATE, object);
  } else if (Is<FinalState>(*object)) {
    InsertItem(place, LoadText(IDS_FINAL_STATE), IMAGE_FINAL_STATE, IMAGE_FINAL_STATE, object);
  }
  if (Count() <= kFirstItems) Expand(*root);
}

void CObjectTree::AddTransition(Transition& transition) {
  TreeItem* place = FirstItem();
  if (const Shape* source = SourceOf(transition)) place = NodeOfSource(source);
  if (place == nullptr) return;
  const int image = ImageOf(transition);
  Shape* object = &transition;
  FillTransitionNode(transition, *InsertItem(place, "", image, image, object));
}

/// The state's own node below the root. What stands for it below a transition is only second best.
TreeItem* CObjectTree::NodeOfSource(const Shape* source) const {
  for (TreeItem* node = FirstWithData(source); node != nullptr; node = node->NextWithData()) {
    if (node->Parent() == FirstItem()) return node;
  }
  const std::vector<TreeItem*> nodes = FindItems(source);
  return nodes.empty() ? nullptr : nodes.back();
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
  for (const Layer layer : {LAYER_STATE, LAYER_TRANSITION}) {
    for (Shape* object : objects) {
      if (object->GetLayer() == layer) AddNode(object);
    }
  }
  // A transition without a source goes behind the others when its message comes.
  for (Shape* object : objects) {
    if (!Is<Mesg>(*object)) continue;
    Transition* transition = static_cast<Mesg*>(object)->GetTransition();
    if (transition != nullptr && SourceOf(*transition) == nullptr) UpdateNodes(transition);
  }
}

void CObjectTree::RemoveNodes(Shape* object) {
  for (TreeItem* node = FirstWithData(object); node != nullptr; node = FirstWithData(object)) {
    DeleteItem(*node);
  }
}

void CObjectTree::RemoveAllNodes() {
  const TreeItem* root = FirstItem();
  if (root == nullptr) return;
  const std::string text = root->Text();
  DeleteAllItems();
  InsertItem(nullptr, text, IMAGE_ROOT, IMAGE_ROOT, view);
}

void CObjectTree::UpdateNodes(Shape* object) {
  for (TreeItem* node : FindItems(object)) {
    if (Is<GenericState>(*object)) {
      SetText(*node, static_cast<const State*>(object)->GetName());
    } else if (Is<Transition>(*object)) {
      UpdateTransition(static_cast<Transition&>(*object), *node);
    }
  }
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

void CObjectTree::OnLButtonDown(TreeItem* hit) {
  if (hit == nullptr || IsChartBusy()) return;
  Select(hit);
  if (hit->Data() != view) view->GetModel().SelectOnly(static_cast<Shape*>(hit->Data()));
}

bool CObjectTree::OnRButtonDown(TreeItem* hit, POINT screen) {
  if (hit == nullptr || IsChartBusy()) return false;
  Select(hit);
  // The command that is chosen may delete the object, and its item with it.
  if (hit->Data() == view) {
    view->ShowChartMenu(screen);
  } else {
    view->GetModel().ShowObjectMenu(static_cast<Shape*>(hit->Data()), screen.x, screen.y);
  }
  return true;
}

}  // namespace morvane
