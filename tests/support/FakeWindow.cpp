#include "tests/support/FakeWindow.h"

#include <array>
#include <sstream>

#include "platform/CMetaFileDC.h"
#include "platform/CNullDC.h"

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

void FakeWindow::Toggle(const std::string& stroke) {
  if (toggled.erase(stroke) == 0) toggled.insert(stroke);
}

void FakeWindow::TakePainted(Metafile drawn) {
  painted.insert(painted.end(), drawn.records.begin(), drawn.records.end());
}
