#include "fuzz/ChartHand.h"

#include <algorithm>
#include <array>
#include <vector>

#include "connectors/HeadLink.h"
#include "connectors/LinkChain.h"
#include "connectors/Transition.h"
#include "fuzz/ChartFaults.h"
#include "model/ConnectableRectShape.h"
#include "model/ModelMgr.h"
#include "resources/CommandIds.h"
#include "states/State.h"
#include "surface/HiddenWindow.h"
#include "surface/ToolDrag.h"

namespace morvane {

namespace {

LayoutMgr& MakeView(CMorvaneDoc& document) {
  document.SetView(std::make_unique<LayoutMgr>());
  return dynamic_cast<LayoutMgr&>(*document.GetView());
}

/// Every command that a chart knows.
std::vector<unsigned> AllCommands(LayoutMgr& chart) {
  std::vector<unsigned> ids;
  for (unsigned id = ID_TOOL_DRAG_STARTED; id <= ID_PREV_PANE; ++id) {
    if (chart.OnUpdateCommand(id).handled) ids.push_back(id);
  }
  return ids;
}

}  // namespace

void ChartHand::Document::OnTextChanged(const SharedText& text) {
  CMorvaneDoc::OnTextChanged(text);
  if (hand.inHistory) return;
  if (hand.book.Note(*text)) ++hand.stepCount;
}

ChartHand::ChartHand(Choose choose) : choose(std::move(choose)), chart(MakeView(document)) {
  chart.SetObjectTree(&tree);
  chart.OnInitialUpdate();
  chart.ApplyZoom();
}

std::size_t ChartHand::ObjectCount() const { return chart.GetModel().Objects().size(); }

std::string ChartHand::Fault() const {
  if (!fault.empty()) return fault;
  if (std::string wrong = ChartFault(chart); !wrong.empty()) return wrong;
  if (std::string wrong = TreeFault(chart, tree); !wrong.empty()) return wrong;
  return window.IsDrained() ? "" : "a gesture leaves messages behind";
}

std::string ChartHand::TextFault() const { return morvane::TextFault(chart); }

std::string ChartHand::HistoryFault() {
  inHistory = true;
  std::string wrong = StepFault(chart, book);
  if (wrong.empty()) wrong = morvane::HistoryFault(chart, book);
  inHistory = false;
  return wrong;
}

/// What the chart shows after a move is the last step: nothing has changed on the quiet.
void ChartHand::NoteSteps() {
  if (fault.empty()) fault = StepFault(chart, book);
}

void ChartHand::Command(unsigned id) {
  const bool goesBack = id == ID_EDIT_UNDO && book.CanStepBack();
  const bool goesOn = id == ID_EDIT_REDO && book.CanStepForward();
  inHistory = goesBack || goesOn;
  chart.OnCommand(id);
  inHistory = false;
  if (goesBack) book.StepBack();
  if (goesOn) book.StepForward();
}

void ChartHand::DoEverything() {
  switch (Below(8)) {
    case 0: DoubleClick(); break;
    case 1: OpenMenu(); break;
    case 2: UseTree(); break;
    case 3: FindAndEdit(); break;
    case 4: AnyCommand(); break;
    default: DoAnything();
  }
  NoteSteps();
}

void ChartHand::DoubleClick() {
  Shape* shape = AnyObject();
  const POINT p = shape != nullptr ? CentreOf(chart.ToClient(shape->GetBounds())) : AnyPoint();
  Click(p, 0);
  chart.OnLButtonDblClk(MK_LBUTTON, p);
  chart.OnLButtonUp(0, p);
}

void ChartHand::OpenMenu() {
  if (ObjectCount() > 40) return;
  const Shape* shape = Below(4) == 0 ? nullptr : AnyObject();
  chart.OnContextMenu(shape != nullptr ? CentreOf(chart.ToClient(shape->GetBounds())) : AnyPoint());
  // A tool of the menu waits for its place.
  if (chart.GetTools().Tool() != 0) chart.OnLButtonUp(0, AnyPoint());
}

void ChartHand::UseTree() {
  if (ObjectCount() > 40) return;
  std::vector<TreeItem*> items;
  for (TreeItem* item = tree.FirstItem(); item != nullptr; item = item->Next()) {
    items.push_back(item);
    for (TreeItem* child = item->FirstChild(); child != nullptr; child = child->Next()) {
      items.push_back(child);
    }
  }
  TreeItem* hit = items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
  Below(2) == 0 ? tree.OnLButtonDown(hit) : void(tree.OnRButtonDown(hit, AnyPoint()));
  if (chart.GetTools().Tool() != 0) chart.OnLButtonUp(0, AnyPoint());
}

void ChartHand::FindAndEdit() { Command(ID_FIND_REPLACE); }

void ChartHand::AnyCommand() {
  static const std::vector<unsigned> commands = AllCommands(chart);
  const unsigned id = commands[static_cast<std::size_t>(Below(static_cast<int>(commands.size())))];
  if ((id == ID_EDIT_PASTE || id == ID_DUPLICATE) && ObjectCount() > 40) return;
  Command(id);
}

void ChartHand::DoAnything() {
  switch (Below(22)) {
    case 0:
    case 1: PlaceTool(); break;
    case 2:
    case 3:
    case 4: DragFromAnchor(); break;
    case 5:
    case 6:
    case 7: DragObject(); break;
    case 8:
    case 9: DragLinkHandle(); break;
    case 10: DragCorner(); break;
    case 11: {
      const POINT from = AnyPoint();
      Drag(from, AnyPoint(), MK_CONTROL);
      break;
    }
    case 12: Click(AnyPoint(), Below(3) == 0 ? MK_SHIFT : 0U); break;
    case 13: ObjectCommand(); break;
    case 14: Command(Below(2) == 0 ? ID_EDIT_UNDO : ID_EDIT_REDO); break;
    case 15: CopyAndPaste(); break;
    case 16: Command(std::array{ID_ZOOM_IN, ID_ZOOM_OUT, ID_ZOOM_NORMAL}[Below(3)]); break;
    case 17: chart.OnScrollBy({Below(400) - 200, Below(400) - 200}); break;
    case 18: Command(Below(2) == 0 ? ID_BRING_TO_FRONT : ID_SEND_TO_BACK); break;
    case 19: CancelledDrag(); break;
    case 20:
      window.Key(VirtualKey::Escape);
      Click(AnyPoint(), 0);
      break;
    default: Below(4) == 0 ? void(chart.OnKeyDown(VirtualKey::Delete, 0)) : PressArrow();
  }
}

POINT ChartHand::AnyPoint() { return {Below(900), Below(700)}; }

Shape* ChartHand::AnyObject() {
  const auto& objects = chart.GetModel().Objects();
  return objects.empty()
             ? nullptr
             : objects[static_cast<std::size_t>(Below(static_cast<int>(objects.size())))];
}

void ChartHand::Hover(POINT p) {
  window.cursorPos = p;
  chart.OnMouseMove(0, p);
  chart.OnSetCursor();
}

void ChartHand::Drag(POINT from, POINT to, unsigned flags) {
  Hover(from);
  const POINT middle{(from.x + to.x) / 2 + Below(9), (from.y + to.y) / 2 - Below(9)};
  window.Move(middle);
  window.Move(to);
  window.Release(to);
  chart.OnLButtonDown(flags | MK_LBUTTON, from);
  while (!window.IsDrained()) window.NextMessage();
  chart.OnLButtonUp(flags, to);
  Hover(to);
}

void ChartHand::Click(POINT p, unsigned flags) {
  Hover(p);
  window.Release(p);
  chart.OnLButtonDown(flags | MK_LBUTTON, p);
  while (!window.IsDrained()) window.NextMessage();
  chart.OnLButtonUp(flags, p);
}

void ChartHand::PlaceTool() {
  const POINT p = AnyPoint();
  if (ObjectCount() > 40) return;
  Command(ID_TOOL_STATE + static_cast<unsigned>(Below(6)));
  Command(ID_TOOL_DRAG_STARTED);
  window.cursorPos = p;
  chart.OnMouseMove(0, p);
  chart.OnLButtonUp(0, p);
  chart.OnKeyDown(VirtualKey::Escape, 0);
}

POINT ChartHand::AnchorOf(const Connectable& shape) {
  auto anchor = shape.GetAnchors().begin();
  std::advance(anchor, Below(static_cast<int>(shape.GetAnchors().size())));
  return chart.ToClient(anchor->point);
}

void ChartHand::DragFromAnchor() {
  auto* from = Any<State>();
  auto* to = Any<Connectable>();
  if (from == nullptr || to == nullptr) return;
  if (Below(2) == 0) chart.GetModel().DeselectAll();
  // One pixel inside, where the press hits the state itself.
  const POINT anchor = AnchorOf(*from);
  const POINT press{std::min(anchor.x, chart.ToClient(from->GetBounds()).right - 1),
                    std::min(anchor.y, chart.ToClient(from->GetBounds()).bottom - 1)};
  Drag(press, Below(4) == 0 ? AnyPoint() : AnchorOf(*to), 0);
}

void ChartHand::DragObject() {
  auto* shape = AnyObject();
  if (shape == nullptr) return;
  const RECT box = chart.ToClient(shape->GetBounds());
  const POINT inside = CentreOf(box) + POINT{Below(5), Below(5)};
  constexpr std::array<unsigned, 4> keys{MK_SHIFT, MK_ALT, 0, 0};
  const unsigned flags = keys[static_cast<std::size_t>(Below(keys.size()))];
  Drag(inside, inside + POINT{Below(200) - 100, Below(200) - 100}, flags);
}

/// Another arrow than the last one: the same again would go on with its step, and the book notes
/// each text as a step of its own.
void ChartHand::PressArrow() {
  constexpr std::array arrows{VirtualKey::Left, VirtualKey::Up, VirtualKey::Right,
                              VirtualKey::Down};
  constexpr std::array<unsigned, 5> keys{0, MK_SHIFT, MK_CONTROL, MK_CONTROL | MK_SHIFT, MK_ALT};
  arrow = (arrow + 1 + static_cast<std::size_t>(Below(3))) % arrows.size();
  chart.OnKeyDown(arrows[arrow], keys[static_cast<std::size_t>(Below(keys.size()))]);
}

void ChartHand::DragLinkHandle() {
  auto* transition = Any<Transition>();
  if (transition == nullptr) return;
  std::vector<const Link*> links;
  for (const Link* link = transition->GetChain().Head(); link != nullptr; link = link->next) {
    links.push_back(link);
  }
  const POINT handle = CentreOf(
      links[static_cast<std::size_t>(Below(static_cast<int>(links.size())))]->GetHandleRect());
  auto* state = Any<State>();
  const bool toState = state != nullptr && Below(2) == 0;
  Drag(handle, toState ? AnchorOf(*state) : handle + POINT{Below(300) - 150, Below(300) - 150}, 0);
}

void ChartHand::DragCorner() {
  auto* shape = Any<RectShape>();
  if (shape == nullptr) return;
  chart.GetModel().SelectOnly(shape);
  const RECT box = chart.ToClient(shape->GetBounds());
  Drag({box.right - 2, box.bottom - 2}, {box.right + Below(90) - 60, box.bottom + Below(90) - 60},
       0);
}

void ChartHand::ObjectCommand() {
  auto* shape = AnyObject();
  if (shape == nullptr) return;
  constexpr std::array commands{ID_TRANSITION_ADD_MESG,   ID_TRANSITION_ADD_MESG,
                                ID_TRANSITION_ALIGN_MESG, ID_TRANSITION_DELETE_MESG,
                                ID_TRANSITION_DELETE,     ID_MESG_ALIGN,
                                ID_MESG_DELETE,           ID_STATE_DELETE,
                                ID_NOTE_DELETE,           ID_LINE_DELETE,
                                ID_SHOW_ANCHORS};
  HiddenWindow menu(&chart);
  menu.SetTarget(shape);
  menu.OnCommand(commands[static_cast<std::size_t>(Below(commands.size()))]);
}

void ChartHand::CopyAndPaste() {
  if (ObjectCount() > 40) return;
  if (Below(2) == 0) Command(ID_EDIT_SELECT_ALL);
  Command(Below(3) == 0 ? ID_EDIT_CUT : ID_EDIT_COPY);
  Command(ID_EDIT_PASTE);
}

void ChartHand::CancelledDrag() {
  const POINT from = AnyPoint();
  const std::string before = chart.ModelText();
  Hover(from);
  window.Move(AnyPoint());
  window.Move(AnyPoint());
  if (Below(2) == 0) window.Key(VirtualKey::Escape);
  chart.OnLButtonDown(MK_LBUTTON, from);
  while (!window.IsDrained()) window.NextMessage();
  Hover(from);
  // A press can raise a transition within its layer; nothing moves and nothing comes or goes.
  if (chart.ModelText().size() != before.size())
    fault = "a gesture that was cancelled changes the chart";
}

}  // namespace morvane
