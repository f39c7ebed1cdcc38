#pragma once

#include <cstdint>

#include "drawing/Geometry.h"

namespace morvane {

class ModelStream;
struct BoxFields;

/// How the box of a message or a note is filled and framed.
struct BoxLook {
  void Write(ModelStream& stream) const;
  void Read(ModelStream& stream);
  /// What the user can change of the look, and of the anchors; and the same back.
  BoxFields Fields(bool showAnchors) const;
  void Take(const BoxFields& fields, bool& showAnchors);

  std::int32_t bgTransparent = 0;
  std::int32_t noBorder = 0;
  COLORREF bgColor = 0xFFFFFF;
  COLORREF borderColor = 0;
};

}  // namespace morvane
