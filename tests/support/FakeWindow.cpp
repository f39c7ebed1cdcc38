#include "tests/support/FakeWindow.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "platform/CScrollView.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "surface/LayoutMgr.h"

namespace morvane {

FakeWindow::FakeWindow(CWnd& window) : window(window) { window.SetPeer(this); }

FakeWindow::~FakeWindow() { window.SetPeer(nullptr); }

Message FakeWindow::NextMessage() {
  if (queue.empty()) return {Message::Kind::Quit, {}};
  const Message message = queue.front();
  queue.pop_front();
  return message;
}

void FakeWindow::Live() {
  // What the test has seen and set so far is as it was when the loop is over.
  const Cursor cursorBefore = cursor;
  const POINT place = cursorPos;
  const RECT whole = client;
  constexpr SIZE smaller{7, 5};
  client = {0, 0, std::max(whole.right - smaller.cx, 0), std::max(whole.bottom - smaller.cy, 0)};
  window.OnSize();
  Paint();
  for (const POINT p : {CentreOf(whole), POINT{3, 3}, place}) Hover(p);
  window.OnMouseLeave();
  for (unsigned id = ID_TOOL_DRAG_STARTED; id <= ID_OBJECT_BROWSER; ++id) {
    window.OnUpdateCommand(id);
  }
  for (unsigned id = ID_FILE_NEW; id <= ID_PREV_PANE; ++id) window.OnUpdateCommand(id);
  if (ModalLoop::IsRunning()) TryToChange();
  client = whole;
  window.OnSize();
  Paint();
  cursorPos = place;
  cursor = cursorBefore;
}

void FakeWindow::Paint() {
  auto* view = dynamic_cast<CScrollView*>(&window);
  if (view == nullptr) return;
  static NullDC reference;
  CMetaFileDC dc(reference);
  view->OnPrepareDC(dc);
  view->OnDraw(dc);
}

void FakeWindow::Hover(POINT p) {
  cursorPos = p;
  window.OnMouseMove(0, p);
  window.OnSetCursor();
}

void FakeWindow::TryToChange() {
  auto* chart = dynamic_cast<LayoutMgr*>(&window);
  if (chart == nullptr) return;
  const std::string before = chart->ModelText();
  const POINT middle = CentreOf(client);
  bool used = chart->OnKeyDown(VirtualKey::Delete, 0);
  for (const unsigned id : {ID_EDIT_UNDO, ID_EDIT_REDO, ID_EDIT_PASTE, ID_EDIT_CUT, ID_ZOOM_IN}) {
    used = chart->OnCommand(id) || used;
  }
  chart->OnLButtonDown(MK_LBUTTON, middle);
  chart->OnLButtonDblClk(MK_LBUTTON, middle);
  chart->OnContextMenu(middle);
  if (!used && chart->ModelText() == before) return;
  std::cerr << "a chart can be changed behind a box, a menu or a dialog\n";
  std::abort();
}

}  // namespace morvane
