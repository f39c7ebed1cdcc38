#pragma once

#include <optional>
#include <string>

#include "drawing/Geometry.h"
#include "platform/Message.h"

namespace morvane {

class CRgn;
struct InPlaceText;

/// The real window behind a `CWnd`, made by the toolkit. All points and rectangles are device
/// pixels of the client area unless told otherwise. The peer calls the `On...` operations of its
/// `CWnd`, and while a nested loop runs it hands mouse and key messages to `NextMessage` instead.
class WindowPeer {
 public:
  virtual ~WindowPeer() = default;
  virtual RECT ClientRect() const = 0;
  virtual void InvalidateRect(const RECT& r) = 0;
  virtual void InvalidateRgn(const CRgn& region) = 0;
  virtual void InvalidateAll() = 0;
  /// Paints now what is invalid.
  virtual void Update() = 0;
  /// Off: nothing is painted until it is on again.
  virtual void SetRedraw(bool on) = 0;
  /// What shows over the picture has changed here; the picture itself has not.
  virtual void InvalidateFeedback(const RECT& r) = 0;

  virtual void SetCapture() = 0;
  virtual void ReleaseCapture() = 0;
  virtual bool HasCapture() const = 0;
  virtual POINT CursorPos() const = 0;
  virtual bool IsShiftDown() const = 0;
  virtual bool IsAltDown() const = 0;
  virtual int DragDistance() const = 0;
  virtual void SetCursor(Cursor cursor) = 0;
  virtual POINT ClientToScreen(POINT p) const = 0;
  virtual POINT ScreenToClient(POINT p) const = 0;

  /// Shows a bar for positions 0 to `limit` with the given steps, at `position`.
  virtual void SetScrollBar(ScrollBar bar, int limit, int line, int page, int position) = 0;

  /// What the window paints may have changed for a screen reader: its parts, or what is selected.
  /// It may be called for thousands of parts, one by one.
  virtual void OnPartsChanged() {}

  /// Opens a box over the picture in which the user edits a text, with the keyboard in it. A box
  /// that was open goes. What the user does to end it comes as `CWnd::OnTextBoxLeft`.
  virtual void OpenTextBox(const InPlaceText& text) = 0;
  virtual void MoveTextBox(const RECT& client) = 0;
  /// Closes the box and gives its text, with CR LF between lines; none if no box was open. A text
  /// that the user left alone comes back byte for byte.
  virtual std::optional<std::string> CloseTextBox() = 0;

  /// Waits for the next message.
  virtual Message NextMessage() = 0;
};

}  // namespace morvane
