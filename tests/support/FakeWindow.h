#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "platform/CDC.h"
#include "platform/CWnd.h"
#include "platform/Metafile.h"
#include "platform/WindowPeer.h"

/// A window without a screen. Messages are posted before the press that reads them; what is painted
/// is recorded, and what is drawn to be erased by a second drawing is counted.
class FakeWindow : public WindowPeer {
 public:
  explicit FakeWindow(CWnd& window);
  ~FakeWindow() override;

  void Move(POINT p) { Post(Message::Kind::MouseMove, p); }
  void Release(POINT p) { Post(Message::Kind::LButtonUp, p); }
  void Post(Message::Kind kind, POINT p);
  void Key(VirtualKey key);
  /// Every message has been read.
  bool IsDrained() const { return queue.empty(); }

  /// How many strokes that erase each other are on the screen now, and were at most.
  std::size_t Feedback() const { return toggled.size(); }
  std::size_t MostFeedback() const { return mostToggled; }
  const std::vector<Metafile::Record>& Painted() const { return painted; }
  void ForgetPainted() { painted.clear(); }
  const std::vector<RECT>& Invalidated() const { return invalidated; }

  POINT cursorPos;
  bool shiftDown = false;
  Cursor cursor = Cursor::Arrow;
  RECT client{0, 0, 1200, 900};

  std::unique_ptr<CDC> CreateClientDC() override;
  RECT ClientRect() const override { return client; }
  void InvalidateRect(const RECT& r) override { invalidated.push_back(r); }
  void InvalidateRgn(const CRgn& region) override;
  void InvalidateAll() override { invalidated.push_back(client); }
  void Update() override {}
  void SetRedraw(bool) override {}
  void SetCapture() override { captured = true; }
  void ReleaseCapture() override { captured = false; }
  bool HasCapture() const override { return captured; }
  POINT CursorPos() const override { return cursorPos; }
  bool IsShiftDown() const override { return shiftDown; }
  void SetCursor(Cursor picture) override { cursor = picture; }
  POINT ClientToScreen(POINT p) const override { return p; }
  POINT ScreenToClient(POINT p) const override { return p; }
  void SetScrollBar(ScrollBar, int, int, int, int) override {}
  Message NextMessage() override;

  void Toggle(const std::string& stroke);
  void TakePainted(Metafile drawn);

 private:
  CWnd& window;
  std::deque<Message> queue;
  std::set<std::string> toggled;
  std::size_t mostToggled = 0;
  std::vector<Metafile::Record> painted;
  std::vector<RECT> invalidated;
  bool captured = false;
};
