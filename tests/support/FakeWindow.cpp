#include "tests/support/FakeWindow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <utility>

#include "drawing/CMetaFileDC.h"
#include "drawing/CNullDC.h"
#include "platform/CScrollView.h"
#include "platform/ModalLoop.h"
#include "resources/CommandIds.h"
#include "surface/LayoutMgr.h"

namespace {

/// Hands what is drawn on it to its window. Strokes in the inverting mode are kept apart.
class FakeDC : public CMetaFileDC {
 public:
  FakeDC(FakeWindow& window, CDC& reference) : CMetaFileDC(reference), window(window) {}
  ~FakeDC() override { window.TakePainted(Close()); }

  RECT GetClipBox() const override { return window.client; }
  void Polyline(std::span<const POINT> points) override {
    if (points.front() == points.back()) return;
    if (!Inverts("line", points)) CMetaFileDC::Polyline(points);
  }
  void Rectangle(const RECT& r) override {
    const std::array<POINT, 2> corners{TopLeft(r), BottomRight(r)};
    if (!Inverts("rectangle", corners)) CMetaFileDC::Rectangle(r);
  }
  void Arc(const RECT& r, POINT start, POINT end) override {
    const std::array<POINT, 4> points{TopLeft(r), BottomRight(r), start, end};
    if (!Inverts("arc", points)) CMetaFileDC::Arc(r, start, end);
  }

 private:
  bool Inverts(const char* what, std::span<const POINT> points) {
    if (GetROP2() != RasterOp::NotXorPen) return false;
    std::ostringstream stroke;
    stroke << what << ' ' << static_cast<int>(GetPen().style);
    for (const POINT p : points) {
      const POINT device = LPtoDP(p);
      stroke << ' ' << device.x << ',' << device.y;
    }
    window.Toggle(stroke.str());
    return true;
  }

  FakeWindow& window;
};

}  // namespace

FakeWindow::FakeWindow(CWnd& window) : window(window) { window.SetPeer(this); }

FakeWindow::~FakeWindow() { window.SetPeer(nullptr); }

Message FakeWindow::NextMessage() {
  if (queue.empty()) return {Message::Kind::Quit, {}};
  const Message message = queue.front();
  queue.pop_front();
  return message;
}

std::unique_ptr<CDC> FakeWindow::CreateClientDC() {
  static CNullDC reference;
  return std::make_unique<FakeDC>(*this, reference);
}

void FakeWindow::Live() {
  // What the test has seen and set so far is as it was when the loop is over.
  std::vector<Metafile::Record> paintedBefore = std::exchange(painted, {});
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
  painted = std::move(paintedBefore);
}

void FakeWindow::Paint() {
  auto* view = dynamic_cast<CScrollView*>(&window);
  if (view == nullptr) return;
  static CNullDC reference;
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

void FakeWindow::Toggle(const std::string& stroke) {
  if (toggled.erase(stroke) == 0) toggled.insert(stroke);
}

void FakeWindow::TakePainted(Metafile drawn) {
  painted.insert(painted.end(), drawn.records.begin(), drawn.records.end());
}
