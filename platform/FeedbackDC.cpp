#include "platform/FeedbackDC.h"

#include "drawing/CNullDC.h"
#include "platform/Feedback.h"

namespace {

/// Lines need no measuring.
CDC& Nowhere() {
  static CNullDC dc;
  return dc;
}

}  // namespace

FeedbackDC::FeedbackDC(Feedback& feedback, CWnd& window, POINT place)
    : CMetaFileDC(Nowhere()), feedback(feedback), window(window), place(place) {}

FeedbackDC::~FeedbackDC() { feedback.Show(window, Close(), place); }
