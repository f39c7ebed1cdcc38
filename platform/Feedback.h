#pragma once

#include <memory>

#include "drawing/Geometry.h"

namespace morvane {

class CDC;
class CWnd;
class Metafile;

/// One thing that a gesture shows over the picture of a window: a rubber line, a frame, a mark, a
/// ghost. It is a drawing of lines and areas in device pixels of the client area, by which the
/// window inverts its picture whenever it shows it; nothing is drawn to be erased. It shows until
/// it is hidden or goes, and may outlive its window.
class Feedback {
 public:
  Feedback();
  ~Feedback();
  Feedback(const Feedback&) = delete;
  Feedback& operator=(const Feedback&) = delete;

  /// Shows a drawing, moved by `place`, instead of the one before; `FeedbackDC` makes it.
  void Show(CWnd& window, Metafile drawing, POINT place = {});
  /// Shows the same drawing at another place, if it shows.
  void MoveTo(POINT place);
  void Hide();
  bool IsShown() const { return shown != nullptr; }

  /// Plays what shows on a context in device pixels of the client area, in its raster mode.
  void Paint(CDC& dc) const;

 private:
  struct Shown;
  void Invalidate() const;

  std::unique_ptr<Shown> shown;  ///< most of those in a large chart show nothing
};

}  // namespace morvane
