#include "platform/FeedbackDC.h"

#include "drawing/NullDC.h"
#include "platform/Feedback.h"

namespace morvane {

namespace {

/// Lines need no measuring.
CDC& Nowhere() {
  static NullDC dc;
  return dc;
}

}  // namespace

FeedbackDC::FeedbackDC(Feedback& feedback, CWnd& window, POINT place)
    : CMetaFileDC(Nowhere()), feedback(feedback), window(window), place(place) {}

FeedbackDC::~FeedbackDC() { feedback.Show(window, Close(), place); }

}  // namespace morvane
