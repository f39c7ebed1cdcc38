#pragma once

#include <utility>

#include "drawing/Metafile.h"
#include "platform/Feedback.h"

namespace morvane {

/// The ghost of a connector during a drag: a recording that is made once and moves with the
/// pointer. Points are offsets in device pixels.
class MetafileStamp {
 public:
  bool IsActive() const { return feedback.IsShown(); }
  /// What the next `Show` is to show until `End`.
  void SetMetafile(Metafile recording) { metafile = std::move(recording); }
  void Show(POINT point, CWnd& window);
  void End() { feedback.Hide(); }

 private:
  Metafile metafile;
  Feedback feedback;
};

}  // namespace morvane
