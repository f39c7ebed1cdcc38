#include "fuzz/ChartFaults.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "connectors/HeadLink.h"
#include "connectors/Line.h"
#include "connectors/LinkChain.h"
#include "connectors/Mesg.h"
#include "connectors/TailLink.h"
#include "connectors/Transition.h"
#include "fuzz/StepBook.h"
#include "model/Collection.h"
#include "model/ModelMgr.h"
#include "resources/CommandIds.h"
#include "shell/CObjectTree.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/StartableState.h"
#include "surface/LayoutMgr.h"
#include "tests/support/Charts.h"

namespace morvane {

namespace {

template <class List, class Member>
std::ptrdiff_t CountOf(const List& list, const Member& member) {
  return std::count(list.begin(), list.end(), member);
}

std::string TransitionFault(const Transition& transition) {
  const StartableState* source = transition.GetSource();
  if (source != nullptr && CountOf(source->GetOutgoing(), &transition) != 1) {
    return "a source does not know its transition";
  }
  const EndableState* target = transition.GetTarget();
  if (target != nullptr && CountOf(target->GetIncoming(), &transition) != 1) {
    return "a target does not know its transition";
  }
  return ChainFault(transition.GetChain());
}

std::string LineFault(Line& line) {
  if (line.GetStart() == line.GetEnd()) return "a line has no length";
  const auto wanted = line.GetStartShape() == line.GetEndShape() ? 2 : 1;
  for (const Connectable* shape : {line.GetStartShape(), line.GetEndShape()}) {
    if (shape != nullptr && CountOf(shape->GetConnectors(), &line) != wanted) {
      return "a shape does not know its line";
    }
  }
  return {};
}

std::string StateFault(Shape& shape) {
  if (const auto* state = dynamic_cast<StartableState*>(&shape)) {
    for (const StateTransition* transition : state->GetOutgoing()) {
      if (transition->GetSource() != state) return "a transition does not know its source";
    }
  }
  if (const auto* state = dynamic_cast<EndableState*>(&shape)) {
    for (const StateTransition* transition : state->GetIncoming()) {
      if (transition->GetTarget() != state) return "a transition does not know its target";
    }
  }
  return {};
}

std::string ShapeFault(Shape& shape) {
  if (const auto* transition = dynamic_cast<Transition*>(&shape)) {
    return TransitionFault(*transition);
  }
  if (auto* line = dynamic_cast<Line*>(&shape)) return LineFault(*line);
  if (const auto* mesg = dynamic_cast<Mesg*>(&shape)) {
    const Transition* transition = mesg->GetTransition();
    const bool isTied = transition != nullptr && transition->GetMesg() == mesg;
    return isTied ? "" : "a message and its transition do not know each other";
  }
  return StateFault(shape);
}

std::string NodeFault(const LayoutMgr& chart, const Transition& transition, const TreeItem& node) {
  const Shape* source = transition.GetSource();
  const Shape* target = transition.GetTarget();
  const Shape* mesg = target != nullptr ? transition.GetMesg() : nullptr;
  const void* above = source != nullptr ? static_cast<const void*>(source) : &chart;
  if (node.Parent()->Data() != above) return "a transition stands in the wrong place of the tree";
  std::vector<const void*> expected;
  if (target != nullptr && target != source) expected.push_back(target);
  if (mesg != nullptr) expected.push_back(mesg);
  std::vector<const void*> shown;
  for (const TreeItem* item = node.FirstChild(); item != nullptr; item = item->Next()) {
    shown.push_back(item->Data());
  }
  return shown == expected ? "" : "the tree shows other things below a transition";
}

double AreaOf(const Shape& shape) {
  const RECT r = shape.GetBounds();
  return static_cast<double>(Width(r)) * static_cast<double>(Height(r));
}

/// The smallest state that a shape lies in; null for none.
const Shape* HolderOf(const LayoutMgr& chart, const Shape& inner) {
  const RECT r = inner.GetBounds();
  const Shape* holder = nullptr;
  for (const Shape* shape : chart.GetModel().Objects()) {
    if (dynamic_cast<const GenericState*>(shape) == nullptr) continue;
    const RECT outer = shape->GetBounds();
    const bool holds = outer.left <= r.left && outer.top <= r.top && outer.right >= r.right &&
                       outer.bottom >= r.bottom;
    if (!holds || AreaOf(*shape) <= AreaOf(inner)) continue;
    if (holder == nullptr || AreaOf(*shape) < AreaOf(*holder)) holder = shape;
  }
  return holder;
}

/// The item stands for the holder, or for another one of its size.
bool IsAsLarge(const Shape& holder, const TreeItem* item) {
  const auto* shape = static_cast<const Shape*>(item->Data());
  return item->Parent() != nullptr && AreaOf(*shape) == AreaOf(holder);
}

/// The first lines in which they differ.
std::string FirstDifference(const std::string& shown, const StepBook& book) {
  std::istringstream chart(shown);
  std::istringstream step(book.Current());
  std::string a;
  std::string b;
  do {
    std::getline(chart, a);
    std::getline(step, b);
  } while (a == b && (chart || step));
  return ": \"" + a + "\" instead of \"" + b + "\"";
}

}  // namespace

std::string ChainFault(const LinkChain& chain) {
  if (chain.Head()->prev != nullptr) return "something stands before the head of a chain";
  if (chain.Tail()->next != nullptr) return "something stands behind the tail of a chain";
  for (const Link* link = chain.Head(); link->next != nullptr; link = link->next) {
    if (link->end != link->next->start) return "a chain has a gap";
    if (link->next->prev != link) return "a chain does not lead back";
    if (link->kind == LINK_H && link->start.y != link->end.y) return "a horizontal link slants";
    if (link->kind == LINK_V && link->start.x != link->end.x) return "a vertical link slants";
    if (link->IsSegment() && link->start == link->end) return "a link has no length";
  }
  return {};
}

std::string ChartFault(const LayoutMgr& chart) {
  for (Shape* shape : chart.GetModel().Objects()) {
    if (std::string fault = ShapeFault(*shape); !fault.empty()) return fault;
  }
  for (Collectable* member : chart.GetSelection().Members()) {
    if (CountOf(chart.GetModel().Objects(), dynamic_cast<Shape*>(member)) != 1) {
      return "what is selected is not in the chart";
    }
  }
  return {};
}

std::string TreeFault(const LayoutMgr& chart, CObjectTree& tree) {
  tree.BringUpToDate();
  std::size_t nodes = 1;
  for (Shape* shape : chart.GetModel().Objects()) {
    if (const auto* transition = dynamic_cast<Transition*>(shape)) {
      const std::vector<TreeItem*> found = tree.FindItems(shape);
      if (found.size() != 1) return "the tree has no node for a transition, or several";
      std::string fault = NodeFault(chart, *transition, *found.front());
      if (!fault.empty()) return fault;
      nodes += 1U + static_cast<std::size_t>(found.front()->ChildCount());
    }
    if (dynamic_cast<Mesg*>(shape) != nullptr || dynamic_cast<Transition*>(shape) != nullptr) {
      continue;
    }
    const TreeItem* item = tree.FirstWithData(shape);
    if (item == nullptr) return "the tree has no node for a state, a note or a line";
    const Shape* holder =
        dynamic_cast<State*>(shape) != nullptr ? HolderOf(chart, *shape) : nullptr;
    const bool isOutermost = holder == nullptr && item->Parent() == tree.FirstItem();
    if (!isOutermost && (holder == nullptr || !IsAsLarge(*holder, item->Parent()))) {
      return "a state does not stand below the one that it lies in";
    }
    ++nodes;
  }
  return tree.Count() == nodes ? "" : "the tree has nodes for nothing";
}

std::string TextFault(const LayoutMgr& chart) {
  const std::string text = chart.ModelText();
  return LoadChart(text)->ModelText() == text ? "" : "the text reads back to another one";
}

std::string HistoryFault(LayoutMgr& chart) {
  chart.TakeSnapshot();
  std::vector<std::string> texts{chart.ModelText()};
  while (chart.OnCommand(ID_EDIT_UNDO)) texts.push_back(chart.ModelText());
  for (auto text = texts.rbegin() + 1; text != texts.rend(); ++text) {
    if (!chart.OnCommand(ID_EDIT_REDO)) return "what was undone cannot be redone";
    if (chart.ModelText() != *text) return "a redo shows another text";
  }
  return {};
}

std::string StepFault(LayoutMgr& chart, const StepBook& book) {
  const std::string shown = StepBook::WithoutZoom(chart.ModelText());
  if (shown != book.Current())
    return "the chart differs from its step" + FirstDifference(shown, book);
  if (chart.OnUpdateCommand(ID_EDIT_UNDO).enabled != book.CanStepBack()) {
    return "a step is missing, or one too many, before this one";
  }
  return chart.OnUpdateCommand(ID_EDIT_REDO).enabled == book.CanStepForward()
             ? ""
             : "a step is missing, or one too many, behind this one";
}

std::string HistoryFault(LayoutMgr& chart, StepBook& book) {
  while (book.CanStepForward()) {
    chart.OnCommand(ID_EDIT_REDO);
    book.StepForward();
    if (std::string fault = StepFault(chart, book); !fault.empty()) return fault;
  }
  while (book.CanStepBack()) {
    chart.OnCommand(ID_EDIT_UNDO);
    book.StepBack();
    if (std::string fault = StepFault(chart, book); !fault.empty()) return fault;
  }
  while (book.CanStepForward()) {
    chart.OnCommand(ID_EDIT_REDO);
    book.StepForward();
    if (std::string fault = StepFault(chart, book); !fault.empty()) return fault;
  }
  return {};
}

}  // namespace morvane
