#pragma once

#include "drawing/CMetaFileDC.h"

namespace morvane {

class CWnd;
class Feedback;

/// A blank layer over the picture of a window, in device pixels of its client area. When it goes,
/// the feedback shows what was drawn on it instead of what it showed before.
class FeedbackDC : public CMetaFileDC {
 public:
  /// The drawing is shown moved by `place`.
  FeedbackDC(Feedback& feedback, CWnd& window, POINT place = {});
  ~FeedbackDC() override;

 private:
  Feedback& feedback;
  CWnd& window;
  POINT place;
};

}  // namespace morvane
