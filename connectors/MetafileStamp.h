#pragma once

#include <optional>
#include <utility>

#include "drawing/Geometry.h"
#include "drawing/Metafile.h"

class CDC;

/// The ghost of a connector during a drag: a recording that is played once to show it and once more
/// at the same place to erase it. Points are offsets in device pixels.
class MetafileStamp {
 public:
  bool IsActive() const { return active; }
  /// What is to be shown; it is kept until `End`.
  void SetMetafile(Metafile recording) { metafile = std::move(recording); }
  void Show(POINT point, CDC& dc);
  /// Erases the ghost and drops the recording.
  void End(CDC& dc);

 private:
  void Play(POINT point, CDC& dc) const;

  POINT position{-1, -1};
  std::optional<Metafile> metafile;
  bool active = false;
};
