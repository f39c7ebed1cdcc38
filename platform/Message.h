#pragma once

#include "drawing/Geometry.h"

namespace morvane {

/// Key state that comes with a message of the mouse or of a key.
enum MouseFlags : unsigned {
  MK_LBUTTON = 1,
  MK_RBUTTON = 2,
  MK_SHIFT = 4,
  MK_CONTROL = 8,
  MK_ALT = 32
};

enum class VirtualKey {
  Other,
  Escape,
  Prior,
  Next,
  Home,
  End,
  Left,
  Up,
  Right,
  Down,
  Delete,
  Return,
  Tab,
  Space  ///< was hit, and not held to drag the surface
};

/// A message of the queue, as a nested loop sees it.
struct Message {
  enum class Kind {
    MouseMove,
    LButtonDown,
    LButtonUp,
    LButtonDblClk,
    RButtonDown,
    RButtonUp,
    KeyDown,
    Other,  ///< went its normal way already
    Quit    ///< the window or the program is going: a loop has to end
  };
  Kind kind = Kind::Other;
  POINT point;         ///< device pixels of the client area
  unsigned flags = 0;  ///< MouseFlags
  VirtualKey key = VirtualKey::Other;
};

enum class Cursor {
  Arrow,
  SizeWE,
  SizeNS,
  SizeNWSE,
  SizeNESW,
  SizeAll,
  DiagonalDouble,  ///< a diagonal double arrow, for the ends of a line
  ArrowWithCross,  ///< an arrow with a four-way cross
  PlainArrow,      ///< a plain arrow over a line
  DiagonalHandle   ///< a diagonal double arrow, for handles
};

enum class ScrollBar { Horizontal, Vertical };
enum class ScrollCode { LineBack, LineForward, PageBack, PageForward, ToStart, ToEnd, ToPosition };

}  // namespace morvane
