#pragma once

#include <deque>
#include <utility>

#include "codegen/DialogGenerators.h"
#include "dialogs/DialogEditors.h"
#include "drawing/Metafile.h"
#include "platform/CWnd.h"
#include "platform/InPlaceText.h"
#include "platform/WindowPeer.h"
#include "tests/support/NestedLoop.h"

namespace morvane {

/// A window without a screen. Messages are posted before the press that reads them. While a box, a
/// menu or a dialog waits, its events go on: it is resized, painted, and has the pointer over it.
class FakeWindow : public WindowPeer {
 public:
  explicit FakeWindow(CWnd& window);
  ~FakeWindow() override;

  void Move(POINT p) { queue.push_back({Message::Kind::MouseMove, p}); }
  void Release(POINT p) { queue.push_back({Message::Kind::LButtonUp, p}); }
  void Key(VirtualKey key) { queue.push_back({Message::Kind::KeyDown, {}, 0, key}); }
  /// Every message has been read.
  bool IsDrained() const { return queue.empty(); }
  /// How many things show over the picture.
  std::size_t Feedback() const { return window.ShownFeedback().size(); }
  void Paint();

  POINT cursorPos;
  bool shiftDown = false;
  bool altDown = false;
  Cursor cursor = Cursor::Arrow;
  RECT client{0, 0, 1200, 900};

  RECT ClientRect() const override { return client; }
  void InvalidateRect(const RECT&) override {}
  void InvalidateRgn(const CRgn&) override {}
  void InvalidateAll() override {}
  void Update() override {}
  void SetRedraw(bool) override {}
  void InvalidateFeedback(const RECT&) override {}
  void SetCapture() override { captured = true; }
  void ReleaseCapture() override { captured = false; }
  bool HasCapture() const override { return captured; }
  POINT CursorPos() const override { return cursorPos; }
  bool IsShiftDown() const override { return shiftDown; }
  bool IsAltDown() const override { return altDown; }
  int DragDistance() const override { return 4; }
  void SetCursor(Cursor picture) override { cursor = picture; }
  POINT ClientToScreen(POINT p) const override { return p; }
  POINT ScreenToClient(POINT p) const override { return p; }
  void SetScrollBar(ScrollBar, int, int, int, int) override {}
  Message NextMessage() override;

  /// The box in which a text is edited in place, while it is open; a test types into its text.
  std::optional<InPlaceText> box;
  void OpenTextBox(const InPlaceText& text) override { box = text; }
  void MoveTextBox(const RECT& area) override {
    if (box) box->client = area;
  }
  std::optional<std::string> CloseTextBox() override {
    if (!box) return std::nullopt;
    return std::exchange(box, std::nullopt)->text;
  }

 private:
  DialogEditors editors;
  DialogGenerators generators;
  CWnd& window;
  std::deque<Message> queue;
  bool captured = false;

  /// What a loop does with this window.
  void Live();
  void Hover(POINT p);
  /// Nothing that the user does reaches a chart behind what waits on top of it.
  void TryToChange();
  const NestedLoop::Member member{[this] { Live(); }};
};

}  // namespace morvane
