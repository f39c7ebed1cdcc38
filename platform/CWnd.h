#pragma once

#include <optional>
#include <string>
#include <unordered_set>

#include "drawing/Geometry.h"
#include "platform/Command.h"
#include "platform/Message.h"

namespace morvane {

class CRgn;
class Feedback;
class ReadableParts;
struct InPlaceText;
class WindowPeer;

/// A window as the program sees it. Without a real window behind it everything but painting works:
/// invalidation is forgotten, the client area is empty. All points and rectangles are device pixels
/// of the client area unless told otherwise.
class CWnd {
 public:
  CWnd() = default;
  virtual ~CWnd();
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  /// Ties the real window, which isn't owned and takes itself back before it goes.
  void SetPeer(WindowPeer* window) { peer = window; }
  bool HasWindow() const { return peer != nullptr; }
  /// How far the surface has gone on under a gesture, device pixels. What a gesture knows are the
  /// points of its beginning: whatever comes from the real window and goes there is moved by this,
  /// so that nobody else has to know.
  POINT GetDrift() const { return drift; }

  RECT GetClientRect() const;
  void InvalidateRect(const RECT& r);
  void InvalidateRgn(const CRgn& region);
  void Invalidate();
  void UpdateWindow();
  void SetRedraw(bool on);

  /// What shows over the picture of this window. Their order says nothing: two that cross invert
  /// what they share twice.
  const std::unordered_set<Feedback*>& ShownFeedback() const { return feedback; }
  /// Feedback comes and goes by itself.
  void AddFeedback(Feedback& shown) { feedback.insert(&shown); }
  void RemoveFeedback(Feedback& hidden) { feedback.erase(&hidden); }
  /// Feedback has changed here: the window shows its picture anew, and paints nothing.
  void InvalidateFeedback(const RECT& r);

  void SetCapture();
  void ReleaseCapture();
  /// This window holds the mouse.
  bool HasCapture() const;
  POINT GetCursorPos() const;
  bool IsShiftDown() const;
  bool IsAltDown() const;
  /// How far the pointer goes, across and down added up, until a press is a drag.
  int GetDragDistance() const;
  void SetCursor(Cursor cursor);
  POINT ClientToScreen(POINT p) const;
  POINT ScreenToClient(POINT p) const;

  /// What the window paints may have changed for a screen reader.
  void TellPartsChanged();
  /// What a screen reader tells of the window's picture; null if nothing is to be told.
  virtual ReadableParts* Parts() { return nullptr; }

  /// Lets the user edit a text where it stands, see `WindowPeer`.
  void OpenTextBox(const InPlaceText& text);
  void MoveTextBox(const RECT& client);
  std::optional<std::string> CloseTextBox();
  /// The user ended the editing of a text, to keep it or to give it up. The box is still open.
  virtual void OnTextBoxLeft(bool /*keep*/) {}

  /// Waits for the next message of the queue, for a nested loop. Without a window it gives Quit.
  Message NextMessage();
  /// The normal way of a message that a nested loop doesn't take. Its point is one of `NextMessage`
  /// or of a time without a gesture.
  void DispatchMessage(const Message& message);

  virtual void OnLButtonDown(unsigned /*flags*/, POINT /*p*/) {}
  virtual void OnLButtonUp(unsigned /*flags*/, POINT /*p*/) {}
  virtual void OnLButtonDblClk(unsigned /*flags*/, POINT /*p*/) {}
  virtual void OnMouseMove(unsigned /*flags*/, POINT /*p*/) {}
  /// The pointer left the window.
  virtual void OnMouseLeave() {}
  /// A context menu is asked for at a screen point.
  virtual void OnContextMenu(POINT /*screen*/) {}
  /// The same by a key, without a place.
  virtual void OnMenuKey() { OnContextMenu(ClientToScreen(CentreOf(GetClientRect()))); }
  /// Gives true when the key was used.
  virtual bool OnKeyDown(VirtualKey /*key*/, unsigned /*flags*/) { return false; }
  /// The pointer stands in the client area: choose its picture.
  virtual void OnSetCursor() {}
  virtual void OnSize() {}
  /// What to tell the user about a client point under the pointer; mostly nothing.
  virtual std::string TipAt(POINT /*client*/) const { return {}; }

  /// Carries a command out; false when this window doesn't know it or it is disabled.
  virtual bool OnCommand(unsigned /*id*/) { return false; }
  virtual CommandState OnUpdateCommand(unsigned /*id*/) { return {}; }

 protected:
  WindowPeer* Peer() const { return peer; }
  void SetDrift(POINT distance) { drift = distance; }

 private:
  WindowPeer* peer = nullptr;
  POINT drift;
  std::unordered_set<Feedback*> feedback;
};

}  // namespace morvane
